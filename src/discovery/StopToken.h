#pragma once

#include <atomic>
#include <memory>
#include <utility>

namespace corvane {

/// Says whether work has been asked to stop. Copies stand for the same request; any thread may ask.
/// One without a source never stops. (The Mac's standard library has no std::stop_token.)
class StopToken {
 public:
  StopToken() = default;

  bool stop_requested() const { return requested_ && requested_->load(); }

 private:
  friend class StopSource;
  explicit StopToken(std::shared_ptr<const std::atomic<bool>> requested)
      : requested_(std::move(requested)) {}

  std::shared_ptr<const std::atomic<bool>> requested_;
};

/// Asks work to stop, once and for good. Any thread may ask.
class StopSource {
 public:
  StopToken get_token() const { return StopToken(requested_); }
  void request_stop() { requested_->store(true); }

 private:
  std::shared_ptr<std::atomic<bool>> requested_ = std::make_shared<std::atomic<bool>>(false);
};

}  // namespace corvane
