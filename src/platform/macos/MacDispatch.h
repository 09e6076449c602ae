#pragma once

#include "platform/Dispatch.h"
#include "platform/posix/MainQueue.h"

namespace corvane::macos {

/// The platform's global queues and groups, with the main queue of the face: the window's event
/// loop, which on a Mac is the main run loop, or the command line's own loop.
class MacDispatch final : public Dispatch {
 public:
  /// `mainQueue` outlives the dispatch.
  explicit MacDispatch(MainQueue& mainQueue) : mainQueue_(mainQueue) {}

  void asyncMain(std::function<void()> work) override;
  void syncMain(std::function<void()> work) override;
  void asyncGlobal(QueuePriority priority, std::function<void()> work) override;
  std::unique_ptr<DispatchGroup> createGroup() override;
  void sleep(std::chrono::milliseconds duration) override;
  bool isMain() const override;

 private:
  MainQueue& mainQueue_;
};

}  // namespace corvane::macos
