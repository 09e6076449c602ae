#pragma once

#include <memory>

#include "platform/Dispatch.h"
#include "platform/posix/MainQueue.h"
#include "platform/posix/MainWork.h"

namespace corvane::macos {

/// The platform's global queues and groups, with the main queue of the face: the window's event
/// loop, which on a Mac is the main run loop, or the command line's own loop.
class MacDispatch final : public Dispatch {
 public:
  /// `mainQueue` outlives the dispatch.
  explicit MacDispatch(MainQueue& mainQueue);
  MacDispatch(const MacDispatch&) = delete;
  MacDispatch& operator=(const MacDispatch&) = delete;

  /// Ends the work as end() does.
  ~MacDispatch() override;

  /// Ends all global work, on the main thread, before what it works on goes away: work that has not
  /// begun is dropped, work that sleeps or waits for the main queue or a group is unwound from that
  /// call by an exception, and work that does something is waited for. From then on whatever is
  /// submitted is dropped. Work that blocks in other ways is told to end by `tellToEnd`, which is
  /// called now and then until all work has ended.
  void end(const std::function<void()>& tellToEnd = [] {});

  void asyncMain(std::function<void()> work) override;
  void syncMain(std::function<void()> work) override;
  void asyncGlobal(QueuePriority priority, std::function<void()> work) override;
  std::unique_ptr<DispatchGroup> createGroup() override;
  void sleep(std::chrono::milliseconds duration) override;
  bool isMain() const override;

 private:
  class Group;
  class Sleeper;
  struct Ended {};
  struct State;
  struct Ticket;

  /// A ticket for `work`, to be handed to run(); null when the dispatch has ended.
  Ticket* ticket(std::function<void()> work);
  static void run(void* ticket) noexcept;
  static void unwindIfEnded(State& state);

  MainQueue& mainQueue_;
  const std::shared_ptr<State> state_;  ///< shared with work that the system has not begun yet
  MainWork mainWork_;
};

}  // namespace corvane::macos
