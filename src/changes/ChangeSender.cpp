#include "changes/ChangeSender.h"

#include "CorvaneAPI.h"
#include "DeviceMonitorCORVANE2_10GE/SEPort.h"
#include "fibre_channel/FibreChannelOffers.h"
#include "inventory/PortReaders.h"

namespace corvane {

namespace {

void applyPreset(commandAPI& presets, PerformanceMode mode, const std::string& interfaceName) {
  switch (mode) {
    case PerformanceMode::LowLatency:
      presets.setLowLatencyMode(interfaceName);
      break;
    case PerformanceMode::Balanced:
      presets.setBalancedMode(interfaceName);
      break;
    case PerformanceMode::HighThroughput:
      presets.setHighThroughputMode(interfaceName);
      break;
    case PerformanceMode::Server:
      presets.setServerMode(interfaceName);
      break;
    case PerformanceMode::Custom:
      break;
  }
}

/// What was read back after writing, as the number that was wished for.
Answer<int64_t> writeAndSave(commandBody& command, const std::string& interfaceName,
                             const char* title, int64_t value) {
  const CommandTurn change;
  command.setNicName(interfaceName);
  command.setSetValue(std::to_string(value));
  command.setCommandTittle(title);
  command.setCommand(command);
  const Answer<std::string> readBack = settingAnswer(command.lastOutcome());
  command.saveCommand(command);
  return readBack.map([](const std::string& text) { return toolNumber(text); });
}

std::string joined(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) list += (list.empty() ? "" : ", ") + name;
  return list;
}

}  // namespace

Status sendToDriver(const PortTarget& port, const SettingWish& wish) {
  const CorvaneAPI& api = port.api();
  const auto value = static_cast<uint64_t>(wish.value);
  Status answered = statusFailure;
  switch (wish.setting) {
    case Setting::Speed:
      api.setSpeedFunction(port.service(), speedToSend(port.product(), wish.value), &answered);
      break;
    case Setting::Topology:
      api.setTopologyFunction(port.service(), value, &answered);
      break;
    case Setting::HardAlpa:
      api.setHardAlpaFunction(port.service(), value, &answered);
      break;
    case Setting::QueueDepth:
      api.set_queue_depth(port.service(), static_cast<uint32_t>(wish.value), &answered);
      break;
    case Setting::Mode:
    case Setting::ChecksumOffload:
    case Setting::ReceiveCoalescing:
      break;
  }
  return answered;
}

Answer<int64_t> sendToTool(const PortTarget& port, const SettingWish& wish, commandBody& command) {
  const std::string interfaceName = port.tenGigabitPort().nicNum().value_or("");
  if (wish.setting == Setting::ReceiveCoalescing)
    return writeAndSave(command, interfaceName, "RSCEnable", wish.value);
  // This setting reads and writes 1 for off and 2 for on, unlike every other one.
  return writeAndSave(command, interfaceName, "TCPipv4ChecksumEnable", wish.value + 1)
      .map([](int64_t value) { return value - 1; });
}

Answer<int64_t> applyMode(const PortTarget& port, const SettingWish& wish, commandAPI& presets) {
  const CommandTurn change;
  applyPreset(presets, static_cast<PerformanceMode>(wish.value),
              port.tenGigabitPort().nicNum().value_or(""));
  if (presets.missing().empty()) return wish.value;
  return NoValue{Reason::NoAnswer, "not written: " + joined(presets.missing())};
}

}  // namespace corvane
