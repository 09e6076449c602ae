#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>

#include "platform/posix/MainQueue.h"

namespace corvane {

/// What a dispatch has given to the main queue. That queue outlives the dispatch, so it holds
/// numbers only, and the work itself goes when the dispatch ends, while what the work refers to is
/// still there. Any thread may call.
class MainWork {
 public:
  /// `queue` outlives this object.
  explicit MainWork(MainQueue& queue);

  /// Has `work` run on the main thread, unless end() comes first.
  void async(std::function<void()> work);

  /// Waits until the main thread has run `work`; on the main thread itself, runs it at once. False
  /// when end() came before the work had begun: it will not run then.
  bool sync(const std::function<void()>& work);

  /// Drops what has not begun, and from then on whatever is given. The main thread only.
  void end();

  /// The number that the next work will have.
  uint64_t next() const;

  /// Waits until all work with a lower number than `number` has ended, until `limit` or end().
  void waitForWorkBefore(uint64_t number, std::chrono::steady_clock::time_point limit);

 private:
  struct State;

  MainQueue& queue_;
  const std::shared_ptr<State> state_;  ///< shared with what is on the queue
};

}  // namespace corvane
