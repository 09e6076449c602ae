#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Platform.h"

namespace corvane::standin {

struct MacSystemOptions {
  /// How many times faster than real time the dispatch library's clock runs.
  double clockRate = 1.0;
  /// Called after each pause on a clock that runs faster, on the thread that paused: gives the main
  /// queue the time that it would have had on a clock that runs as fast as this computer.
  std::function<void()> afterPause = [] {};
};

/// Answers the C calls of a Mac's system, which the Mac layer makes, from a platform. One at a time
/// in a process; it begins before the layer makes its first call and ends after the last. It counts
/// what the calls give out and notes what no program may do with it. Any thread may call.
class MacSystem {
 public:
  /// `platform` and what it refers to outlive the object.
  explicit MacSystem(const Platform& platform, MacSystemOptions options = {});
  MacSystem(const MacSystem&) = delete;
  MacSystem& operator=(const MacSystem&) = delete;
  ~MacSystem();

  /// Lets the call of that name fail from now on, after it has succeeded `successes` more times.
  void fail(const std::string& call, int successes = 0);

  /// Lets it succeed again.
  void mend(const std::string& call);

  /// How often the call of that name was made.
  size_t calls(const std::string& call) const;

  /// How often any call was made.
  size_t calls() const;

  /// What was given out and not given back yet, each kind with its number; empty for nothing.
  std::string held() const;

  /// How many references and handles have been given out in all.
  size_t given() const;

  /// What was done that a program must not do, in the order in which it happened.
  std::vector<std::string> misuses() const;

  struct State;

 private:
  const std::unique_ptr<State> state_;
};

}  // namespace corvane::standin
