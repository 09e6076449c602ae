#include <fmt/format.h>

#include <cctype>

#include "DeviceMonitorCORVANE2_8FC/FCPort.h"
#include "inventory/PortReaders.h"

namespace corvane {

namespace {

constexpr const char* noName = "00:00:00:00:00:00:00:00";

NoValue refusal(Status status) {
  return {Reason::Refused, fmt::format("0x{:08X}", static_cast<uint32_t>(status))};
}

FibreChannelPortInformation informationOf(const CorvaneAPI& api) {
  FibreChannelPortInformation told;
  told.WWNN = api.WWNN;
  told.WWPN = api.WWPN;
  told.fwVer = api.fwVer;
  told.pcidevice = api.pcidevice;
  told.pcivendor = api.pcivendor;
  told.linkState = api.linkState;
  told.portSpeed = api.portSpeed;
  told.portTopology = api.portTopology;
  told.settingSpeed = api.settingSpeed;
  told.settingTopology = api.settingTopology;
  told.hard_alpa = api.hard_alpa;
  told.queueDepth = api.queueDepth;
  return told;
}

/// The registry's own text of a name, such as 2100001b 32a0b1c2, as upper-case pairs joined by ":".
std::string pairsOfHexadecimal(const std::string& registryText) {
  std::string joined;
  size_t digits = 0;
  for (const char character : registryText) {
    if (character == ' ') continue;
    if (digits > 0 && digits % 2 == 0) joined += ':';
    joined += static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
    ++digits;
  }
  return joined;
}

/// The port's name as the registry has it, in the form that the driver gives.
Answer<std::string> registryName(const PortTarget& target, const NoValue& why) {
  const auto& name = target.fibreChannelPort().portWWN();
  return name ? Answer<std::string>(pairsOfHexadecimal(*name)) : why;
}

FibreChannelPortReading emptyReading(const PortTarget& target) {
  FibreChannelPortReading reading;
  reading.port = target.port();
  reading.readAt = std::chrono::system_clock::now();
  return reading;
}

// A module may not answer fully at first, so it is read once more before it is judged.
Answer<std::optional<ModuleReading>> readModule(const PortTarget& target) {
  const auto index = static_cast<uint32_t>(target.port() - 1);
  constexpr auto none = static_cast<int64_t>(SFPResult::NoModule);
  TransceiverReply reply;
  const int64_t found = target.api().GetCorvaneSFP(target.service(), index, &reply);
  if (reply.status != statusSuccess) return refusal(reply.status);
  if (found == none) return std::optional<ModuleReading>();
  const int64_t result = target.api().GetCorvaneSFP(target.service(), index, &reply);
  if (reply.status != statusSuccess) return refusal(reply.status);
  return std::optional(ModuleReading{reply.eeprom, static_cast<SFPResult>(result)});
}

}  // namespace

Answer<FibreChannelPortInformation> readInformation(CorvaneAPI& api, RegistryHandle service) {
  Status status = statusSuccess;
  api.GetCorvaneInfoFunction(service, &status);
  if (status != statusSuccess) return refusal(status);
  if (api.WWNN == noName && api.WWPN == noName) return Reason::NoAnswer;
  return informationOf(api);
}

FibreChannelPortInformation zeroInformation() {
  FibreChannelPortInformation zero;
  zero.WWNN = noName;
  zero.WWPN = noName;
  zero.pcidevice = "Unknow";
  return zero;
}

FibreChannelPortReading readFibreChannelPort(const PortTarget& target, int64_t driverFitness) {
  FibreChannelPortReading reading = emptyReading(target);
  reading.information = readInformation(target.api(), target.service());
  reading.portName = reading.information ? Answer<std::string>(reading.information->WWPN)
                                         : registryName(target, reading.information.none());
  if (driverFitness == 0) {
    reading.module = readModule(target);
  } else {
    reading.module = Reason::DriverTooOld;
  }
  return reading;
}

FibreChannelPortReading dumpedFibreChannelPort(const PortTarget& target) {
  const NoValue missing{Reason::NotInDump, {}};
  FibreChannelPortReading reading = emptyReading(target);
  reading.portName = registryName(target, missing);
  reading.information = missing;
  reading.module = missing;
  reading.disks = missing;
  return reading;
}

}  // namespace corvane
