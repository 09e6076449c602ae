#include "CLIParser/commandAPI.h"

#include <array>

#include "CLIParser/toolReports.h"

namespace corvane {

namespace {

struct Preset {
  PerformanceMode mode;
  PerformanceSettings settings;
};

/// Balanced and Server differ in the number of receive rings only.
constexpr std::array presets = {
    Preset{PerformanceMode::LowLatency, {4000, 512, 8000, 1024, 1}},
    Preset{PerformanceMode::Balanced, {8000, 512, 16000, 1024, 1}},
    Preset{PerformanceMode::HighThroughput, {12000, 1024, 24000, 2048, 1}},
    Preset{PerformanceMode::Server, {8000, 512, 16000, 1024, 8}},
};

const PerformanceSettings& settingsOf(PerformanceMode mode) {
  return presets[static_cast<size_t>(mode) - 1].settings;
}

}  // namespace

PerformanceMode modeOf(const PerformanceSettings& settings) {
  for (const Preset& preset : presets) {
    if (preset.settings == settings) return preset.mode;
  }
  return PerformanceMode::Custom;
}

int64_t commandAPI::returnCurrentMode(const std::string& nicName) {
  const CommandTurn turn;
  command_.setNicName(nicName);
  current_.rxIntrThrottle = readSetting("RxIntrThrottle", currentOutcomes_[0]);
  current_.rxRingSize = readSetting("RxRingSize", currentOutcomes_[1]);
  current_.txIntrThrottle = readSetting("TxIntrThrottle", currentOutcomes_[2]);
  current_.txRingSize = readSetting("TxRingSize", currentOutcomes_[3]);
  command_.setCommandTittle("RxRingCount");
  current_.rxRingCount = command_.getFuckSmallTreeRxring(command_);
  currentOutcomes_[4] = command_.lastOutcome();
  return static_cast<int64_t>(modeOf(current_));
}

int64_t commandAPI::setLowLatencyMode(const std::string& nicName) {
  return applyPreset(nicName, PerformanceMode::LowLatency);
}

int64_t commandAPI::setBalancedMode(const std::string& nicName) {
  return applyPreset(nicName, PerformanceMode::Balanced);
}

int64_t commandAPI::setHighThroughputMode(const std::string& nicName) {
  return applyPreset(nicName, PerformanceMode::HighThroughput);
}

int64_t commandAPI::setServerMode(const std::string& nicName) {
  return applyPreset(nicName, PerformanceMode::Server);
}

int64_t commandAPI::applyPreset(const std::string& nicName, PerformanceMode mode) {
  const CommandTurn turn;
  const PerformanceSettings& settings = settingsOf(mode);
  missing_.clear();
  command_.setNicName(nicName);
  writeSetting("RxIntrThrottle", settings.rxIntrThrottle);
  writeSetting("RxRingSize", settings.rxRingSize);
  writeSetting("TxIntrThrottle", settings.txIntrThrottle);
  writeSetting("TxRingSize", settings.txRingSize);
  command_.setCommandTittle("RxRingCount");
  command_.setSetValue(std::to_string(settings.rxRingCount));
  command_.setFuckSmallTreeRxring(command_);
  noteUnlessRun("RxRingCount");
  command_.saveCommand(command_);
  noteUnlessRun("saveConfig");
  return 0;
}

int64_t commandAPI::readSetting(const char* title, CommandOutcome& outcome) {
  command_.setCommandTittle(title);
  const int64_t value = leadingInteger(command_.getCommand(command_).value_or(""));
  outcome = command_.lastOutcome();
  return value;
}

void commandAPI::writeSetting(const char* title, int64_t value) {
  command_.setCommandTittle(title);
  command_.setSetValue(std::to_string(value));
  if (!command_.setCommand(command_)) missing_.emplace_back(title);
}

void commandAPI::noteUnlessRun(const char* line) {
  const CommandOutcome& outcome = command_.lastOutcome();
  if (!outcome.wasRun() || outcome.exitStatus != 0) missing_.emplace_back(line);
}

}  // namespace corvane
