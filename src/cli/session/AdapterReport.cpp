#include "cli/session/AdapterReport.h"

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "CLIParser/toolReports.h"
#include "changes/SettingChange.h"
#include "cli/session/ModeNames.h"
#include "cli/session/TransceiverTexts.h"
#include "discovery/Products.h"
#include "fibre_channel/FibreChannelOffers.h"
#include "fibre_channel/TransceiverFacts.h"
#include "pages/FibreChannelPages.h"
#include "pages/TenGigabitPages.h"

namespace corvane {

namespace {

using nlohmann::ordered_json;

constexpr const char* noLinkText = "No Link";

const char* familyName(AdapterFamily family) {
  return family == AdapterFamily::FibreChannel ? "FC" : "10GbE";
}

ordered_json notRead(const NoValue& none, Reader reader) {
  if (reader == Reader::Program) return nullptr;
  return "not read: " + reasonText(none);
}

template <typename Value>
ordered_json shown(const Answer<Value>& answer, Reader reader) {
  return answer ? ordered_json(*answer) : notRead(answer.none(), reader);
}

/// A fact of what the driver told of a port.
template <typename Fact>
ordered_json told(const FibreChannelPortReading& port, Reader reader, Fact fact) {
  return shown(port.information.map(fact), reader);
}

// Fibre Channel.

std::string speedWords(const FibreChannelPortInformation& told) {
  if (!told.hasLink()) return noLinkText;
  return settingText(Setting::Speed, static_cast<int64_t>(told.portSpeed));
}

std::string topologyWords(const FibreChannelPortInformation& told) {
  if (!told.hasLink()) return noLinkText;
  return settingText(Setting::Topology, static_cast<int64_t>(told.portTopology));
}

/// What the module's bytes say, as far as the driver operation's own test lets them be told.
SFPDescription describedModule(const ModuleReading& module) {
  SFPDescription description = decodeSFP(sfpReplyForEEPROM(module.eeprom));
  description.result = module.result;
  return description;
}

ordered_json checksumFields(const ModuleReading& module) {
  const TransceiverFacts facts(module.eeprom);
  return {{"base", facts.base().fits()}, {"extended", facts.extended().fits()}};
}

ordered_json moduleFields(const FibreChannelPortReading& port, Reader reader) {
  const auto& module = port.module;
  const bool isThere = module && module->has_value();
  const SFPDescription description = isThere ? describedModule(**module) : SFPDescription();
  const bool isWrong = isThere && description.result == SFPResult::WrongSpeedClass;
  ordered_json fields;
  fields["result"] = module ? ordered_json(static_cast<int64_t>(description.result))
                            : notRead(module.none(), reader);
  fields["error"] = module ? ordered_json(isWrong ? wrongModuleText : "") : nullptr;
  fields["infoEnabled"] = isThere && !isWrong;
  fields["checksums"] =
      isThere ? checksumFields(**module) : ordered_json{{"base", nullptr}, {"extended", nullptr}};
  fields.update(transceiverTexts(description));
  return fields;
}

ordered_json fibreChannelPort(const FibreChannelPortReading& port, const std::string& product,
                              Reader reader) {
  using Information = FibreChannelPortInformation;
  const auto number = [&](uint64_t Information::*fact) {
    return told(port, reader, [fact](const Information& information) { return information.*fact; });
  };
  return {{"port", port.port},
          {"portName", shown(port.portName, reader)},
          {"currentSpeed", told(port, reader, speedWords)},
          {"currentTopology", told(port, reader, topologyWords)},
          {"settingSpeed", number(&Information::settingSpeed)},
          {"settingTopology", number(&Information::settingTopology)},
          {"speedItems", offeredSpeeds(product)},
          {"topologyItems", offeredTopologies(product)},
          {"linkState", number(&Information::linkState)},
          {"pcivendor", number(&Information::pcivendor)},
          {"pcidevice", told(port, reader,
                             [](const Information& information) { return information.pcidevice; })},
          {"hard_alpa", number(&Information::hard_alpa)},
          {"queueDepth", number(&Information::queueDepth)},
          {"sfp", moduleFields(port, reader)}};
}

ordered_json fibreChannelDevice(const AdapterReading& adapter, Reader reader) {
  const FibreChannelPortReading& first = adapter.fibreChannelPorts()[0];
  return {{"driverVersion", shown(adapter.driverVersion, reader)},
          {"firmwareVersion", told(first, reader, [](const auto& told) { return told.fwVer; })},
          {"pendingFirmware", nullptr},
          {"deviceWWN", adapter.WWN},
          {"productType", adapter.product},
          {"queueDepth", told(first, reader, [](const auto& told) { return told.queueDepth; })}};
}

// 10GbE.

ordered_json modeName(const TenGigabitPortReading& port, Reader reader) {
  const auto mode = presetMode(port.preset);
  if (!mode) return notRead(mode.none(), reader);
  const auto index = static_cast<size_t>(*mode - 1);
  return index < modeNames.size() ? modeNames.at(index) : "custom";
}

bool isTooOld(const TenGigabitPortReading& port) {
  return port.moduleClass.lacksFor(Reason::DriverTooOld);
}

// A link whose state makes no sense is told as the page tells it.
ordered_json linkWords(const TenGigabitPortReading& port, Reader reader) {
  if (port.hasLink.is(false)) return noLinkText;
  if (port.hasLink.is(true)) return shown(port.medium, reader);
  const Reason reason = port.hasLink.none().reason;
  if (reason == Reason::Senseless || reason == Reason::NoAnswer) return "Unknow";
  return notRead(port.hasLink.none(), reader);
}

/// The box of the page: a driver that is too old is not asked for its module, and only one product
/// has its module shown.
ordered_json moduleBox(const TenGigabitPortReading& port, const std::string& product,
                       Reader reader) {
  if (!port.moduleClass && port.moduleClass.none().reason != Reason::NotOffered)
    return {{"class", notRead(port.moduleClass.none(), reader)},
            {"name", nullptr},
            {"warning", nullptr},
            {"hidden", true}};
  const int64_t moduleClass = port.moduleClass.valueOr(0);
  const bool isOnPage = product == corvane2_10G_SFP;
  const std::string name(moduleClassName(moduleClass));
  const bool isWrong = isOnPage && moduleClass == unknownModuleClass;
  return {{"class", moduleClass},
          {"name", name.empty() ? ordered_json(nullptr) : ordered_json(name)},
          {"warning", isWrong ? ordered_json(wrongModuleWarning10G) : ordered_json(nullptr)},
          {"hidden", !isOnPage || (name.empty() && !isWrong)}};
}

ordered_json tenGigabitPort(const TenGigabitPortReading& port, const std::string& product,
                            Reader reader) {
  const auto& coalescing = port.receiveCoalescing;
  return {{"port", port.port},
          {"macAddress", shown(port.macAddress, reader)},
          {"enName", shown(port.enName, reader)},
          {"enStatus", linkWords(port, reader)},
          {"MTU", shown(port.MTU, reader)},
          {"mode", modeName(port, reader)},
          {"settingModeEnabled", presetMode(port.preset).isKnown()},
          {"tcpipv4",
           {{"state", shown(port.checksumOffload, reader)},
            {"enabled", port.checksumOffload.isKnown() || (isTooOld(port) && port.port == 1)}}},
          {"rsc",
           {{"state", shown(coalescing, reader)},
            {"enabled", coalescing.isKnown()},
            {"hidden", coalescing.lacksFor(Reason::NotOffered)}}},
          {"module", moduleBox(port, product, reader)}};
}

ordered_json portOutOfReach(const TenGigabitPortReading& port) {
  return {{"port", port.port},
          {"accessible", false},
          {"macAddress", shown(port.macAddress, Reader::Program)},
          {"enName", shown(port.enName, Reader::Program)}};
}

ordered_json linkOf(int64_t port, const Answer<bool>& link, const std::optional<int64_t>& speed) {
  return {{"port", port},
          {"link", link ? ordered_json(*link) : nullptr},
          {"speed", speed ? ordered_json(*speed) : nullptr}};
}

ordered_json linkOf(const FibreChannelPortReading& port) {
  const auto link = port.information.map([](const auto& told) { return told.hasLink(); });
  std::optional<int64_t> speed;
  if (link.is(true) && port.information->portSpeed != speedAutomatic)
    speed = static_cast<int64_t>(port.information->portSpeed);
  return linkOf(port.port, link, speed);
}

ordered_json linkOf(const TenGigabitPortReading& port) {
  return linkOf(port.port, port.hasLink, port.medium ? speedOfMedium(*port.medium) : std::nullopt);
}

}  // namespace

ordered_json entryFields(const DeviceListEntry& entry) {
  return {{"image", entry.image},
          {"WWN", entry.WWN},
          {"Sequence", entry.Sequence},
          {"Version", entry.Version},
          {"ProductType", entry.ProductType},
          {"pcidebug", entry.pcidebug},
          {"family", familyName(entry.family())}};
}

ordered_json portFields(const AdapterReading& adapter, int64_t port, Reader reader) {
  const auto index = static_cast<size_t>(port - 1);
  if (adapter.family() == AdapterFamily::FibreChannel)
    return fibreChannelPort(adapter.fibreChannelPorts().at(index), adapter.product, reader);
  const TenGigabitPortReading& reading = adapter.tenGigabitPorts().at(index);
  return reading.isEnabled.is(true) ? tenGigabitPort(reading, adapter.product, reader)
                                    : portOutOfReach(reading);
}

ordered_json adapterFields(const AdapterReading& adapter, Reader reader) {
  auto device = adapter.family() == AdapterFamily::FibreChannel
                    ? fibreChannelDevice(adapter, reader)
                    : ordered_json{{"driverVersion", shown(adapter.driverVersion, reader)},
                                   {"productType", adapter.product}};
  return {{"family", familyName(adapter.family())},
          {"device", std::move(device)},
          {"ports",
           ordered_json::array({portFields(adapter, 1, reader), portFields(adapter, 2, reader)})}};
}

ordered_json linkFields(const AdapterReading& reading) {
  auto links = ordered_json::array();
  std::visit(
      [&links](const auto& ports) {
        for (const auto& port : ports) links.push_back(linkOf(port));
      },
      reading.ports);
  return links;
}

std::optional<int64_t> speedOfMedium(const std::string& medium) {
  if (medium == "100baseTX") return 100;
  if (medium == "1000BaseT" || medium == "1000baseLX") return 1000;
  if (medium == "10GbaseT" || medium == "10GbaseSR") return 10000;
  return std::nullopt;
}

}  // namespace corvane
