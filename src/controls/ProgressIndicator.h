#pragma once

#include <optional>
#include <string>

#include "controls/Control.h"

namespace corvane {

/// Shows that work is going on, and how far it is when that can be told. Hidden while idle.
class ProgressIndicator : public Control {
 public:
  ProgressIndicator(const Dispatch& dispatch, std::string name);
  ProgressIndicator(ControlSet& set, std::string name);

  /// Overlapping pieces of work each start and stop it; it runs as long as one of them does.
  void start();
  void stop();

  /// Starts or stops it whatever was started before: for work that is counted elsewhere.
  void setRunning(bool running);
  bool isRunning() const { return running_ > 0; }

  /// 0 to 1; nothing when it cannot be told.
  std::optional<double> fraction() const { return fraction_; }
  void setFraction(std::optional<double> fraction) { change(fraction_, fraction); }

 private:
  int running_ = 0;
  std::optional<double> fraction_;
};

}  // namespace corvane
