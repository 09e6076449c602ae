#pragma once

#include <memory>
#include <string>

namespace corvane {

/// A web server on the loopback address that hands out the files of one folder.
class FolderServer {
 public:
  /// Binds the port, or any free one for 0. Throws CommandFailure when the folder cannot be read or
  /// the port is taken.
  FolderServer(const std::string& folder, int port);
  FolderServer(const FolderServer&) = delete;
  FolderServer& operator=(const FolderServer&) = delete;
  ~FolderServer();

  /// "http://127.0.0.1:PORT/".
  std::string url() const;

  /// Serves until it is stopped. Once.
  void run();

  /// Ends run(); waits for it to begin when it has not yet. Any other thread may call.
  void stop();

 private:
  struct State;
  const std::unique_ptr<State> state_;
};

}  // namespace corvane
