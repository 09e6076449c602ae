#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "platform/Dispatch.h"
#include "platform/posix/MainQueue.h"
#include "platform/posix/MainWork.h"

namespace corvane {

/// The dispatch queues on ordinary threads.
///
/// Global work of either priority runs on a pool that starts another thread whenever none is idle,
/// so work that blocks never keeps other work waiting.
class ThreadDispatch final : public Dispatch {
 public:
  /// `mainQueue` outlives the dispatch. sleep() lasts its time divided by `clockRate`.
  explicit ThreadDispatch(MainQueue& mainQueue, double clockRate = 1.0);
  ThreadDispatch(const ThreadDispatch&) = delete;
  ThreadDispatch& operator=(const ThreadDispatch&) = delete;

  /// Ends the work as end() does.
  ~ThreadDispatch() override;

  /// Ends all global work, on the main thread, before what it works on goes away: work that has not
  /// begun is dropped, work that sleeps or waits for the main queue or a group is unwound from that
  /// call by an exception, and work that does something is waited for. From then on whatever is
  /// submitted is dropped. Work that blocks in other ways must have been told to end before.
  void end();

  void asyncMain(std::function<void()> work) override;
  void syncMain(std::function<void()> work) override;
  void asyncGlobal(QueuePriority priority, std::function<void()> work) override;
  std::unique_ptr<DispatchGroup> createGroup() override;
  void sleep(std::chrono::milliseconds duration) override;
  void sleepBesideMain(std::chrono::milliseconds duration) override;
  bool isMain() const override;

 private:
  class Group;
  struct Ended {};
  struct State;

  void serve();
  void runWork(const std::function<void()>& work);
  int patience() const;
  void unwindIfEnded();

  MainQueue& mainQueue_;
  const double clockRate_;
  const std::shared_ptr<State> state_;  ///< shared with the groups, which may outlive this
  MainWork mainWork_;
  std::vector<std::thread> threads_;  ///< guarded by the state's mutex
};

}  // namespace corvane
