#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace corvane {

/// A web server on the loopback address, on a thread of its own, that behaves as badly as it is
/// told to. Tell it what to serve before the first request.
class LoopbackServer {
 public:
  LoopbackServer();
  LoopbackServer(const LoopbackServer&) = delete;
  LoopbackServer& operator=(const LoopbackServer&) = delete;
  ~LoopbackServer();

  /// The URL of `path`, which begins with "/"; of the server without one.
  std::string url(const std::string& path = {}) const;

  void serve(const std::string& path, const std::string& body);
  void serveWithoutLength(const std::string& path, const std::string& body);
  void redirect(const std::string& path, const std::string& target);
  void fail(const std::string& path, int status);

  /// Announces `announced` bytes, sends `body` and closes the connection.
  void cut(const std::string& path, const std::string& body, size_t announced);

  /// Announces one byte more than `body`, sends `body` and then nothing until the server goes.
  void stall(const std::string& path, const std::string& body);

  /// Sends `body` byte by byte, with that much time before each.
  void trickle(const std::string& path, const std::string& body, std::chrono::milliseconds pause);

  /// Sends zero bytes for as long as they are taken, without saying how many.
  void serveEndlessly(const std::string& path);

  /// The paths asked for so far, in order.
  std::vector<std::string> requests() const;

 private:
  struct State;
  const std::unique_ptr<State> state_;
};

}  // namespace corvane
