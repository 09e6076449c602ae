#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "CLIParser/commandBody.h"

namespace corvane {

/// The performance presets of a 10GbE port, by the numbers that are also the tags of the menu.
enum class PerformanceMode : int64_t {
  LowLatency = 1,
  Balanced = 2,
  HighThroughput = 3,
  Server = 4,
  Custom = 5,  ///< the settings are those of no preset
};

/// The five driver settings that a preset fixes.
struct PerformanceSettings {
  int64_t rxIntrThrottle = 0;  ///< receive interrupts per second
  int64_t rxRingSize = 0;      ///< receive descriptors in a ring
  int64_t txIntrThrottle = 0;  ///< transmit interrupts per second
  int64_t txRingSize = 0;      ///< transmit descriptors in a ring
  int64_t rxRingCount = 0;     ///< receive rings

  bool operator==(const PerformanceSettings&) const = default;
};

/// The preset that has these settings, or Custom.
PerformanceMode modeOf(const PerformanceSettings& settings);

/// Applies the performance presets and recognises them. Blocks while the commands run; each
/// operation is one turn of the command channel, so nothing comes between its commands.
class commandAPI {
 public:
  /// `shell` and `paths` outlive the object.
  commandAPI(Shell& shell, const Paths& paths) : command_(shell, paths) {}

  /// The preset that the interface is set to, 1 to 4, or 5 when it is set to none of them.
  /// A setting that cannot be read counts as 0.
  int64_t returnCurrentMode(const std::string& nicName);

  /// Write a preset to the interface and save it. A write that fails does not stop the rest;
  /// the result is always 0. What was not taken is named by missing().
  int64_t setLowLatencyMode(const std::string& nicName);
  int64_t setBalancedMode(const std::string& nicName);
  int64_t setHighThroughputMode(const std::string& nicName);
  int64_t setServerMode(const std::string& nicName);

  /// What the last preset lacks on the interface, in the order of the writing: the settings that
  /// did not read back as written, and "saveConfig" when the tool did not save. Empty when it was
  /// written whole. The ring count cannot be read back so; it counts as missing when its line did
  /// not run to a good end. Hold a CommandTurn around the writing and the look at it.
  const std::vector<std::string>& missing() const { return missing_; }

  /// What returnCurrentMode() last read.
  int64_t currentRxIntrThrottle() const { return current_.rxIntrThrottle; }
  int64_t currentRxRingSize() const { return current_.rxRingSize; }
  int64_t currentRxRingCount() const { return current_.rxRingCount; }
  int64_t currentTxIntrThrottle() const { return current_.txIntrThrottle; }
  int64_t currentTxRingSize() const { return current_.txRingSize; }

  /// What became of the lines that read them, in the order in which they are read: receive throttle
  /// and ring size, transmit throttle and ring size, number of receive rings.
  const std::array<CommandOutcome, 5>& currentOutcomes() const { return currentOutcomes_; }

 private:
  int64_t applyPreset(const std::string& nicName, PerformanceMode mode);
  int64_t readSetting(const char* title, CommandOutcome& outcome);
  void writeSetting(const char* title, int64_t value);
  void noteUnlessRun(const char* line);

  commandBody command_;
  PerformanceSettings current_;
  std::array<CommandOutcome, 5> currentOutcomes_;
  std::vector<std::string> missing_;
};

}  // namespace corvane
