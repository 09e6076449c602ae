#include "platform/macos/MacDispatch.h"

#include <dispatch/dispatch.h>

#include <thread>

namespace corvane::macos {

namespace {

using Work = std::function<void()>;

void* kept(Work work) {
  return new Work(std::move(work));
}

void run(void* work) noexcept {
  const std::unique_ptr<Work> owned(static_cast<Work*>(work));
  (*owned)();
}

dispatch_queue_t globalQueue(QueuePriority priority) {
  return dispatch_get_global_queue(priority == QueuePriority::Background
                                       ? DISPATCH_QUEUE_PRIORITY_BACKGROUND
                                       : DISPATCH_QUEUE_PRIORITY_DEFAULT,
                                   0);
}

class MacDispatchGroup final : public DispatchGroup {
 public:
  MacDispatchGroup() = default;
  MacDispatchGroup(const MacDispatchGroup&) = delete;
  MacDispatchGroup& operator=(const MacDispatchGroup&) = delete;
  ~MacDispatchGroup() override { dispatch_release(group_); }

  void async(QueuePriority priority, std::function<void()> work) override {
    dispatch_group_async_f(group_, globalQueue(priority), kept(std::move(work)), run);
  }

  void wait() override { dispatch_group_wait(group_, DISPATCH_TIME_FOREVER); }

 private:
  dispatch_group_t group_ = dispatch_group_create();
};

}  // namespace

void MacDispatch::asyncMain(std::function<void()> work) {
  mainQueue_.post(std::move(work));
}

void MacDispatch::syncMain(std::function<void()> work) {
  if (isMain()) return work();
  const dispatch_semaphore_t done = dispatch_semaphore_create(0);
  mainQueue_.post([&work, done] {
    work();
    dispatch_semaphore_signal(done);
  });
  dispatch_semaphore_wait(done, DISPATCH_TIME_FOREVER);
  dispatch_release(done);
}

void MacDispatch::asyncGlobal(QueuePriority priority, std::function<void()> work) {
  dispatch_async_f(globalQueue(priority), kept(std::move(work)), run);
}

std::unique_ptr<DispatchGroup> MacDispatch::createGroup() {
  return std::make_unique<MacDispatchGroup>();
}

void MacDispatch::sleep(std::chrono::milliseconds duration) {
  std::this_thread::sleep_for(duration);
}

bool MacDispatch::isMain() const {
  return mainQueue_.isMain();
}

}  // namespace corvane::macos
