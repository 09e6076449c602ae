#include "fakes/LoopbackServer.h"

#include <httplib.h>

#include <condition_variable>
#include <cstdlib>
#include <map>
#include <mutex>
#include <stdexcept>
#include <thread>

namespace corvane {

namespace {

constexpr const char* loopback = "127.0.0.1";
constexpr const char* contentType = "application/octet-stream";

}  // namespace

struct LoopbackServer::State {
  httplib::Server server;
  int port = 0;
  std::thread thread;
  std::mutex mutex;  ///< guards everything below
  std::condition_variable closing;
  bool closed = false;
  std::vector<std::string> requests;
  std::map<std::string, httplib::Server::Handler> answers;  ///< by path

  void answer(const std::string& path, httplib::Server::Handler handler) {
    const std::lock_guard lock(mutex);
    answers[path] = std::move(handler);
  }

  httplib::Server::HandlerResponse take(const httplib::Request& request,
                                        httplib::Response& response) {
    const std::lock_guard lock(mutex);
    requests.push_back(request.path);
    const auto found = answers.find(request.path);
    if (found == answers.end()) return httplib::Server::HandlerResponse::Unhandled;
    found->second(request, response);
    return httplib::Server::HandlerResponse::Handled;
  }

  void waitForClosing() {
    std::unique_lock lock(mutex);
    closing.wait(lock, [this] { return closed; });
  }
};

LoopbackServer::LoopbackServer() : state_(std::make_unique<State>()) {
  setenv("no_proxy", loopback, 1);
  state_->server.set_pre_routing_handler(
      [state = state_.get()](const httplib::Request& request, httplib::Response& response) {
        return state->take(request, response);
      });
  state_->server.set_keep_alive_max_count(1);
  state_->port = state_->server.bind_to_any_port(loopback);
  if (state_->port <= 0) throw std::runtime_error("no port of the loopback address can be bound");
  state_->thread = std::thread([this] { state_->server.listen_after_bind(); });
  while (!state_->server.is_running()) std::this_thread::yield();
}

LoopbackServer::~LoopbackServer() {
  {
    const std::lock_guard lock(state_->mutex);
    state_->closed = true;
    state_->closing.notify_all();
  }
  state_->server.stop();
  state_->thread.join();
}

std::string LoopbackServer::url(const std::string& path) const {
  return std::string("http://") + loopback + ":" + std::to_string(state_->port) + path;
}

void LoopbackServer::serve(const std::string& path, const std::string& body) {
  state_->answer(path, [body](const httplib::Request&, httplib::Response& response) {
    response.set_content(body, contentType);
  });
}

void LoopbackServer::serveWithoutLength(const std::string& path, const std::string& body) {
  state_->answer(path, [body](const httplib::Request&, httplib::Response& response) {
    response.set_chunked_content_provider(contentType, [body](size_t, httplib::DataSink& sink) {
      sink.write(body.data(), body.size());
      sink.done();
      return true;
    });
  });
}

void LoopbackServer::redirect(const std::string& path, const std::string& target) {
  state_->answer(path, [target](const httplib::Request&, httplib::Response& response) {
    response.set_redirect(target);
  });
}

void LoopbackServer::fail(const std::string& path, int status) {
  state_->answer(path, [status](const httplib::Request&, httplib::Response& response) {
    response.status = status;
    response.set_content("an error page", "text/html");
  });
}

void LoopbackServer::cut(const std::string& path, const std::string& body, size_t announced) {
  state_->answer(path, [body, announced](const httplib::Request&, httplib::Response& response) {
    response.set_content_provider(announced, contentType,
                                  [body](size_t offset, size_t, httplib::DataSink& sink) {
                                    if (offset != 0) return false;
                                    return sink.write(body.data(), body.size());
                                  });
  });
}

void LoopbackServer::stall(const std::string& path, const std::string& body) {
  state_->answer(path, [body, state = state_.get()](const httplib::Request&,
                                                    httplib::Response& response) {
    response.set_content_provider(body.size() + 1, contentType,
                                  [body, state](size_t offset, size_t, httplib::DataSink& sink) {
                                    if (offset == 0) return sink.write(body.data(), body.size());
                                    state->waitForClosing();
                                    return false;
                                  });
  });
}

void LoopbackServer::trickle(const std::string& path, const std::string& body,
                             std::chrono::milliseconds pause) {
  state_->answer(path, [body, pause](const httplib::Request&, httplib::Response& response) {
    response.set_content_provider(body.size(), contentType,
                                  [body, pause](size_t offset, size_t, httplib::DataSink& sink) {
                                    std::this_thread::sleep_for(pause);
                                    return sink.write(&body[offset], 1);
                                  });
  });
}

void LoopbackServer::serveEndlessly(const std::string& path) {
  state_->answer(path, [](const httplib::Request&, httplib::Response& response) {
    response.set_chunked_content_provider(contentType, [](size_t, httplib::DataSink& sink) {
      const std::string zeroes(65'536, '\0');
      return sink.write(zeroes.data(), zeroes.size());
    });
  });
}

std::vector<std::string> LoopbackServer::requests() const {
  const std::lock_guard lock(state_->mutex);
  return state_->requests;
}

}  // namespace corvane
