#include "platform/posix/PlainMainQueue.h"

#include <utility>

namespace corvane {

void PlainMainQueue::post(std::function<void()> work) {
  const std::lock_guard lock(mutex_);
  work_.push_back(std::move(work));
  changed_.notify_one();
}

bool PlainMainQueue::isMain() const {
  return std::this_thread::get_id() == mainThread_;
}

void PlainMainQueue::run() {
  runUntil([] { return false; });
}

void PlainMainQueue::stop() {
  const std::lock_guard lock(mutex_);
  stopped_ = true;
  changed_.notify_one();
}

bool PlainMainQueue::runUntil(const std::function<bool()>& done,
                              std::optional<std::chrono::milliseconds> limit) {
  const Deadline deadline =
      limit ? Deadline(std::chrono::steady_clock::now() + *limit) : std::nullopt;
  while (!done()) {
    const std::function<void()> work = takeWork(deadline);
    if (!work) return false;
    work();
  }
  return true;
}

/// The next piece of work, waited for; none when the queue was stopped or the deadline has passed.
std::function<void()> PlainMainQueue::takeWork(const Deadline& deadline) {
  std::unique_lock lock(mutex_);
  const auto ready = [this] { return stopped_ || !work_.empty(); };
  if (!deadline) {
    changed_.wait(lock, ready);
  } else if (!changed_.wait_until(lock, *deadline, ready)) {
    return nullptr;
  }
  if (std::exchange(stopped_, false)) return nullptr;
  std::function<void()> work = std::move(work_.front());
  work_.pop_front();
  return work;
}

}  // namespace corvane
