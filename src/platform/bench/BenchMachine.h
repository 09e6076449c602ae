#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "platform/Log.h"
#include "platform/bench/file/BenchFile.h"

namespace corvane {

/// The computer's clock, in milliseconds since 1970. Tests bring their own.
using BenchClock = std::function<int64_t()>;

/// The clock of the computer that the bench runs on.
int64_t systemClockMilliseconds();

/// A simulated computer that is switched on: its file, what the file said last, and its clock.
/// Everything of the bench reads the state here and changes it here. Any thread may call.
class BenchMachine {
 public:
  using Observer = std::function<void(const BenchState&)>;

  /// Reads the file and makes the bench's folder. `log` outlives the machine. Throws
  /// BenchFileError.
  BenchMachine(const std::string& path, BenchClock clock, Log& log);
  BenchMachine(const BenchMachine&) = delete;
  BenchMachine& operator=(const BenchMachine&) = delete;
  ~BenchMachine();

  const BenchFile& file() const { return file_; }

  /// What the file says now. While it does not fit, what it said last; the refusal is logged once.
  std::shared_ptr<const BenchState> state();

  /// Changes the file. False when that was refused; the refusal is logged.
  bool update(const std::function<void(BenchState&)>& change);

  /// Milliseconds since 1970.
  int64_t now() const { return clock_(); }

  /// The real time in which `duration` passes on the bench.
  int64_t realMilliseconds(std::chrono::milliseconds duration);

  /// Has `observer` called with the state after each change of the file, on a thread of the
  /// machine's own. Before watch() only.
  void observe(Observer observer);

  /// Begins to look at the file every `interval`, and stops.
  void watch(std::chrono::milliseconds interval);
  void stopWatching();

 private:
  struct Stamp {
    uint64_t device = 0;
    uint64_t inode = 0;
    int64_t seconds = 0;
    int64_t nanoseconds = 0;
    int64_t size = -1;

    bool operator==(const Stamp&) const = default;
  };

  Stamp stampOfFile() const;
  void readAnew(const Stamp& stamp);
  void look(std::chrono::milliseconds interval);
  void deliver();
  void restartDetached(const BenchState& state);

  const BenchFile file_;
  const BenchClock clock_;
  Log& log_;

  std::mutex mutex_;  ///< guards the next two
  Stamp stamp_;
  std::shared_ptr<const BenchState> state_;

  std::vector<Observer> observers_;
  std::shared_ptr<const BenchState> delivered_;
  std::mutex watchMutex_;  ///< guards stopped_
  std::condition_variable wake_;
  bool stopped_ = false;
  std::thread watcher_;
};

}  // namespace corvane
