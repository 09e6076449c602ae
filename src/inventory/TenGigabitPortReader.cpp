#include <sys/wait.h>

#include "DeviceMonitorCORVANE2_10GE/SEPort.h"
#include "discovery/Products.h"
#include "inventory/PortReaders.h"

namespace corvane {

namespace {

// What the shell answers for a program that it cannot run or does not find.
constexpr int cannotBeRun = 126;
constexpr int notFound = 127;

bool isProgramMissing(const CommandOutcome& outcome) {
  if (!WIFEXITED(outcome.exitStatus)) return false;
  const int status = WEXITSTATUS(outcome.exitStatus);
  return status == cannotBeRun || status == notFound;
}

/// Why a line was of no use; nothing when its text can be looked at.
std::optional<NoValue> failureOf(const CommandOutcome& outcome) {
  if (!outcome.scratchFileUsable)
    return NoValue{Reason::Blocked, outcome.scratchFileBusy ? "held by another program" : ""};
  if (outcome.ranOutOfTime || outcome.skipped) return NoValue{Reason::Hangs, {}};
  if (isProgramMissing(outcome)) return NoValue{Reason::Missing, {}};
  return std::nullopt;
}

/// Why a text that the line left holds no value.
NoValue withoutValue(const CommandOutcome& outcome) {
  if (const auto failure = failureOf(outcome)) return *failure;
  const std::string text = trimmedText(outcome.text);
  if (!text.empty()) return {Reason::Senseless, text};
  return {outcome.exitStatus == 0 ? Reason::NoAnswer : Reason::Refused, {}};
}

bool beginsWithDigit(const std::string& text) {
  return !text.empty() && text.front() >= '0' && text.front() <= '9';
}

Answer<int64_t> numberOf(const CommandOutcome& outcome) {
  const auto text = settingAnswer(outcome);
  if (!text) return text.none();
  if (!beginsWithDigit(*text)) return NoValue{Reason::Senseless, *text};
  return leadingInteger(*text);
}

/// The receive ring count stands in a table, where 0 means that it was not found.
Answer<int64_t> ringCount(const CommandOutcome& outcome, int64_t count) {
  if (count != 0) return count;
  return withoutValue(outcome);
}

bool hasModuleCage(std::string_view product) {
  return product == corvane2_10G_SFP || product == corvane3_10G_SFP;
}

TenGigabitPortReading unreadPort(const PortTarget& target, const NoValue& why) {
  const SEPort& port = target.tenGigabitPort();
  TenGigabitPortReading reading;
  reading.port = target.port();
  reading.readAt = std::chrono::system_clock::now();
  reading.macAddress = port.macAddr() ? Answer<std::string>(*port.macAddr()) : why;
  reading.enName = port.nicNum() ? Answer<std::string>(*port.nicNum()) : why;
  reading.isEnabled = port.isAccessAbleflag() == 1;
  const NoValue reason = *reading.isEnabled ? why : NoValue{Reason::PortNotEnabled, {}};
  reading.moduleClass = reason;
  reading.preset = {reason, reason, reason, reason, reason};
  reading.checksumOffload = reason;
  reading.receiveCoalescing = reason;
  reading.hasLink = reason;
  reading.medium = reason;
  reading.MTU = reason;
  return reading;
}

}  // namespace

bool showsModuleOfClass(const PortTarget& port, int64_t moduleClass) {
  return moduleClass == unknownModuleClass ? port.product() == corvane2_10G_SFP
                                           : port.tenGigabitPort().procudtTpe() == corvane2_10G_SFP;
}

Answer<std::string> settingAnswer(const CommandOutcome& outcome) {
  if (const auto failure = failureOf(outcome)) return *failure;
  const auto value = settingValue(outcome.text);
  if (!value) return withoutValue(outcome);
  return trimmedText(*value);
}

int64_t toolNumber(const std::string& value) {
  constexpr int decimal = 10;
  constexpr int hexadecimal = 16;
  return std::strtoll(value.c_str(), nullptr, value.starts_with("0x") ? hexadecimal : decimal);
}

TenGigabitPortReading TenGigabitPortReader::read(const PortTarget& port, int64_t driverFitness) {
  TenGigabitPortReading reading = unreadPort(port, {Reason::DriverTooOld, {}});
  if (!*reading.isEnabled) return reading;
  const CommandTurn page;
  command_.setNicName(reading.enName.valueOr(""));
  if (driverFitness == 0) readSettings(port, reading);
  readLinkState(reading);
  return reading;
}

TenGigabitPortReading TenGigabitPortReader::readLink(const PortTarget& port,
                                                     TenGigabitPortReading last) {
  if (!last.isEnabled.is(true)) return last;
  const CommandTurn page;
  command_.setNicName(port.tenGigabitPort().nicNum().value_or(""));
  readLinkState(last);
  last.readAt = std::chrono::system_clock::now();
  return last;
}

void TenGigabitPortReader::readSettings(const PortTarget& port, TenGigabitPortReading& reading) {
  reading.moduleClass = readModuleClass(port);
  reading.preset = readPreset(command_.nicName());
  reading.checksumOffload = readChecksumOffload();
  reading.receiveCoalescing = readReceiveCoalescing();
}

// The tool is asked once for each class that the module could be of, until one fits.
Answer<int64_t> TenGigabitPortReader::readModuleClass(const PortTarget& port) {
  command_.setCommandTittle("SFPModule");
  int64_t reported = 0;
  for (int64_t candidate = firstModuleClass; candidate <= lastModuleClass; ++candidate) {
    reported = command_.getSFPinfo(command_);
    if (reported == candidate && showsModuleOfClass(port, candidate)) return candidate;
  }
  if (!hasModuleCage(port.product())) return Reason::NotOffered;
  if (reported != 0) return reported;
  if (const auto failure = failureOf(command_.lastOutcome())) return *failure;
  return reported;
}

PresetReading TenGigabitPortReader::readPreset(const std::string& interfaceName) {
  presets_.returnCurrentMode(interfaceName);
  const auto& outcomes = presets_.currentOutcomes();
  return {numberOf(outcomes[0]), numberOf(outcomes[1]), numberOf(outcomes[2]),
          numberOf(outcomes[3]), ringCount(outcomes[4], presets_.currentRxRingCount())};
}

// 1 is off and 2 is on, unlike every other setting.
Answer<bool> TenGigabitPortReader::readChecksumOffload() {
  command_.setCommandTittle("TCPipv4ChecksumEnable");
  const int64_t value = leadingInteger(command_.getCommand(command_).value_or(""));
  if (value == 1 || value == 2) return value == 2;
  const auto text = settingAnswer(command_.lastOutcome());
  return text ? NoValue{Reason::Senseless, *text} : text.none();
}

Answer<bool> TenGigabitPortReader::readReceiveCoalescing() {
  command_.setCommandTittle("RSCEnable");
  if (command_.checkCommand(command_)) {
    if (const auto failure = failureOf(command_.lastOutcome())) return *failure;
    return Reason::NotOffered;
  }
  command_.getCommand(command_);
  const auto text = settingAnswer(command_.lastOutcome());
  if (!text) return text.none();
  if (*text == "0x00000001") return true;
  if (*text == "0x00000000") return false;
  return NoValue{Reason::Senseless, *text};
}

void TenGigabitPortReader::readLinkState(TenGigabitPortReading& reading) {
  reading.medium = Reason::NotAsked;
  if (command_.getNICstatus(command_) == static_cast<int64_t>(LinkState::NoLink)) {
    reading.hasLink = false;
  } else if (command_.getNICstatus(command_) == static_cast<int64_t>(LinkState::Link)) {
    reading.hasLink = true;
    reading.medium = command_.getCurrendSpeed(command_);
  } else {
    reading.hasLink = withoutValue(command_.lastOutcome());
  }
  const int64_t mtu = command_.getMTU(command_);
  reading.MTU = mtu > 0 ? Answer<int64_t>(mtu) : withoutValue(command_.lastOutcome());
}

TenGigabitPortReading unaskedPort(const PortTarget& port) {
  return unreadPort(port, {Reason::NotAsked, {}});
}

TenGigabitPortReading dumpedTenGigabitPort(const PortTarget& port) {
  return unreadPort(port, {Reason::NotInDump, {}});
}

}  // namespace corvane
