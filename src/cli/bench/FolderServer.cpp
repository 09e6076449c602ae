#include "cli/bench/FolderServer.h"

#include <fmt/format.h>
#include <httplib.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "cli/answers/CommandOutput.h"

namespace corvane {

namespace {

constexpr const char* loopback = "127.0.0.1";
constexpr std::chrono::milliseconds longestWait{100};

/// The library's own choice would let two servers listen on one port, each hearing half.
void refuseToShareThePort(socket_t socket) {
  const int yes = 1;
  setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
}

}  // namespace

struct FolderServer::State {
  httplib::Server server;
  int port = 0;
  std::atomic<bool> isStopped{false};
  std::atomic<bool> hasRun{false};
};

FolderServer::FolderServer(const std::string& folder, int port)
    : state_(std::make_unique<State>()) {
  state_->server.set_socket_options(&refuseToShareThePort);
  // The thread sanitizer keeps a signal from a thread that waits for a connection for good.
  state_->server.set_idle_interval(longestWait);
  if (!state_->server.set_mount_point("/", folder)) {
    throw CommandFailure(ExitStatus::NotFound, folder, "there is no such folder",
                         "Name the folder that holds the catalogue's folders.");
  }
  const bool isBound = port == 0 ? (state_->port = state_->server.bind_to_any_port(loopback)) > 0
                                 : state_->server.bind_to_port(loopback, port);
  if (port != 0) state_->port = port;
  if (!isBound) {
    throw CommandFailure(ExitStatus::Failed, fmt::format("port {}", port), "it cannot be bound",
                         "Another program may use it; leave --port away to take a free one.");
  }
}

FolderServer::~FolderServer() = default;

std::string FolderServer::url() const {
  return fmt::format("http://{}:{}/", loopback, state_->port);
}

void FolderServer::run() {
  if (!state_->isStopped) state_->server.listen_after_bind();
  state_->hasRun = true;
}

void FolderServer::stop() {
  state_->isStopped = true;
  // A server that is about to listen does not hear it yet.
  while (!state_->server.is_running() && !state_->hasRun) std::this_thread::yield();
  if (!state_->hasRun) state_->server.stop();
}

}  // namespace corvane
