#pragma once

#include "platform/Dispatch.h"

namespace corvane::macos {

/// The platform's dispatch queues. The main queue is served by the application's event loop or, in
/// the command line, by MacMainLoop.
class MacDispatch final : public Dispatch {
 public:
  void asyncMain(std::function<void()> work) override;
  void syncMain(std::function<void()> work) override;
  void asyncGlobal(QueuePriority priority, std::function<void()> work) override;
  std::unique_ptr<DispatchGroup> createGroup() override;
  void sleep(std::chrono::milliseconds duration) override;
  bool isMain() const override;
};

}  // namespace corvane::macos
