#include "changes/SettingChange.h"

#include <fmt/format.h>

#include <algorithm>

#include "CLIParser/commandAPI.h"
#include "discovery/Products.h"
#include "fibre_channel/ArbitratedLoopAddresses.h"
#include "fibre_channel/FibreChannelOffers.h"

namespace corvane {

namespace {

std::string onOrOff(int64_t value) {
  return value != 0 ? "on" : "off";
}

std::string modeText(int64_t mode) {
  switch (static_cast<PerformanceMode>(mode)) {
    case PerformanceMode::LowLatency:
      return "Low Latency";
    case PerformanceMode::Balanced:
      return "Balanced";
    case PerformanceMode::HighThroughput:
      return "High Throughput";
    case PerformanceMode::Server:
      return "Server";
    case PerformanceMode::Custom:
      break;
  }
  return "Custom";
}

std::vector<int64_t> loopAddresses() {
  std::vector<int64_t> addresses(arbitratedLoopAddresses.begin(), arbitratedLoopAddresses.end());
  std::sort(addresses.begin(), addresses.end());
  return addresses;
}

Answer<int64_t> asNumber(const Answer<bool>& answer) {
  return answer.map([](bool on) -> int64_t { return on ? 1 : 0; });
}

std::string valueOrUnknown(Setting setting, const Answer<int64_t>& value) {
  return value ? settingText(setting, *value) : "?";
}

std::string linkSentence(const ChangeOutcome& outcome) {
  if (!outcome.hasLink) return "Taken.";
  return *outcome.hasLink ? fmt::format("Link back after {} s.", outcome.seconds)
                          : fmt::format("No link after {} s.", outcome.seconds);
}

}  // namespace

std::string settingName(Setting setting) {
  switch (setting) {
    case Setting::Speed:
      return "speed";
    case Setting::Topology:
      return "topology";
    case Setting::HardAlpa:
      return "hard AL_PA";
    case Setting::QueueDepth:
      return "queue depth";
    case Setting::Mode:
      return "performance mode";
    case Setting::ChecksumOffload:
      return "checksum offload";
    case Setting::ReceiveCoalescing:
      return "receive coalescing";
  }
  return {};
}

std::string settingText(Setting setting, int64_t value) {
  const auto number = static_cast<uint64_t>(value);
  switch (setting) {
    case Setting::Speed:
      return speedText(number).value_or(fmt::format("{} Mb/s", value));
    case Setting::Topology:
      return topologyText(number).value_or(std::to_string(value));
    case Setting::HardAlpa:
      return value == 0 ? "None" : fmt::format("{:02X}", value);
    case Setting::QueueDepth:
      return std::to_string(value);
    case Setting::Mode:
      return modeText(value);
    case Setting::ChecksumOffload:
    case Setting::ReceiveCoalescing:
      return onOrOff(value);
  }
  return {};
}

bool isSettingOf(Setting setting, AdapterFamily family) {
  const bool isFibreChannel = setting == Setting::Speed || setting == Setting::Topology ||
                              setting == Setting::HardAlpa || setting == Setting::QueueDepth;
  return isFibreChannel == (family == AdapterFamily::FibreChannel);
}

std::vector<int64_t> offeredValues(Setting setting, std::string_view product,
                                   std::string_view driverVersion) {
  switch (setting) {
    case Setting::Speed:
      return offeredSpeeds(product);
    case Setting::Topology:
      return offeredTopologies(product);
    case Setting::HardAlpa:
      return hasArbitratedLoop(product) ? loopAddresses() : std::vector<int64_t>();
    case Setting::QueueDepth:
      return offeredQueueDepths(driverVersion);
    case Setting::Mode:
      return {1, 2, 3, 4};
    case Setting::ChecksumOffload:
    case Setting::ReceiveCoalescing:
      return {0, 1};
  }
  return {};
}

Answer<int64_t> settingIn(const FibreChannelPortReading& reading, Setting setting) {
  return reading.information.map([setting](const FibreChannelPortInformation& told) {
    switch (setting) {
      case Setting::Speed:
        return static_cast<int64_t>(told.settingSpeed);
      case Setting::Topology:
        return static_cast<int64_t>(told.settingTopology);
      case Setting::HardAlpa:
        return static_cast<int64_t>(told.hard_alpa);
      default:
        return static_cast<int64_t>(told.queueDepth);
    }
  });
}

Answer<int64_t> settingIn(const TenGigabitPortReading& reading, Setting setting) {
  if (setting == Setting::Mode) return presetMode(reading.preset);
  return asNumber(setting == Setting::ChecksumOffload ? reading.checksumOffload
                                                      : reading.receiveCoalescing);
}

ChangeOutcome outcomeFor(const PortTarget& target, const SettingWish& wish) {
  ChangeOutcome outcome;
  outcome.label = target.label();
  outcome.WWN = target.WWN();
  outcome.port = target.port();
  outcome.wish = wish;
  return outcome;
}

Outcome judged(const SettingWish& wish, const Answer<int64_t>& after) {
  if (!after) return Outcome::NotVerifiable;
  return *after == wish.value ? Outcome::Taken : Outcome::NotTaken;
}

std::string sentenceOf(const ChangeOutcome& outcome) {
  const Setting setting = outcome.wish.setting;
  const std::string where = fmt::format("{} port {}", outcome.label, outcome.port);
  const std::string name = settingName(setting);
  const std::string wished = settingText(setting, outcome.wish.value);
  const std::string before = valueOrUnknown(setting, outcome.before);
  switch (outcome.outcome) {
    case Outcome::Taken:
      return fmt::format("{}: {} {} → {}. {}", where, name, before, wished, linkSentence(outcome));
    case Outcome::Refused:
      return fmt::format("{}: {} stays {}. {} was refused ({}).", where, name, before, wished,
                         outcome.reason);
    case Outcome::NotTaken:
      return fmt::format("{}: {} was sent, {} was read back.", where, wished,
                         valueOrUnknown(setting, outcome.after));
    case Outcome::NotVerifiable:
      return fmt::format("{}: {} was sent. Whether it was taken is not known: {}.", where, wished,
                         outcome.reason);
    case Outcome::GoneBefore:
      return fmt::format("{} has gone. Nothing was sent.", outcome.label);
    case Outcome::GoneAfter:
      return fmt::format("{} has gone. {} was sent; no answer was read.", outcome.label, wished);
    case Outcome::Declined:
      return fmt::format("{}: nothing was changed.", where);
  }
  return {};
}

}  // namespace corvane
