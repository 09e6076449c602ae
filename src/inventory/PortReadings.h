#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "CLIParser/toolReports.h"
#include "fibre_channel/FibreChannelProtocol.h"
#include "fibre_channel/SFPDecoder.h"
#include "inventory/Answer.h"

/// What one look at a port gives. Readings are values: made in one place, changed by nobody
/// afterwards, free to be copied to any thread. Whatever a face prints, a rule judges or a file
/// keeps is made from them.
namespace corvane {

/// When something was read, by the computer's clock.
using ReadingTime = std::chrono::system_clock::time_point;

/// What the Fibre Channel driver tells of a port in one call. Speeds are in Mb/s with 0 for
/// automatic, topologies are the codes of FibreChannelProtocol.h, names are eight upper-case pairs
/// joined by ":".
struct FibreChannelPortInformation {
  std::string WWNN;
  std::string WWPN;
  std::string fwVer;      ///< the adapter's running firmware
  std::string pcidevice;  ///< model text
  uint64_t pcivendor = 0;
  uint64_t linkState = 0;  ///< linkStateUp, or anything else for no link
  uint64_t portSpeed = 0;
  uint64_t portTopology = 0;
  uint64_t settingSpeed = 0;
  uint64_t settingTopology = 0;
  uint64_t hard_alpa = 0;
  uint64_t queueDepth = defaultQueueDepth;

  bool hasLink() const { return linkState == linkStateUp; }
  bool operator==(const FibreChannelPortInformation&) const = default;
};

/// A transceiver module as it stands in a Fibre Channel port: the first 96 bytes of its serial
/// identification area (SFF-8472, address A0h), and the result of the driver operation's own test.
struct ModuleReading {
  std::array<uint8_t, SfpInfoStruct::eepromSize> eeprom{};
  SFPResult result = SFPResult::Usable;

  bool operator==(const ModuleReading&) const = default;
};

/// One look at a port of a Fibre Channel adapter.
struct FibreChannelPortReading {
  int64_t port = 1;  ///< 1 or 2
  ReadingTime readAt{};

  /// The port's world wide name. A dump tells it although no driver answers there.
  Answer<std::string> portName;
  Answer<FibreChannelPortInformation> information;

  /// The module in the cage; an empty cage is known, and holds none.
  Answer<std::optional<ModuleReading>> module;

  /// BSD names of the whole disks and partitions whose path leads through the port.
  Answer<std::vector<std::string>> disks;

  bool operator==(const FibreChannelPortReading&) const = default;
};

/// The five settings that a performance preset fixes, each as the tool told it.
struct PresetReading {
  Answer<int64_t> rxIntrThrottle;
  Answer<int64_t> rxRingSize;
  Answer<int64_t> txIntrThrottle;
  Answer<int64_t> txRingSize;
  Answer<int64_t> rxRingCount;

  bool operator==(const PresetReading&) const = default;
};

/// One look at a port of a 10GbE adapter.
struct TenGigabitPortReading {
  int64_t port = 1;  ///< 1 or 2
  ReadingTime readAt{};

  Answer<std::string> macAddress;  ///< six upper-case pairs joined by ":"
  Answer<std::string> enName;      ///< BSD name of the interface, such as "en5"
  Answer<bool> isEnabled;          ///< whether the driver has enabled the port

  /// 0 none, 1 of a kind that the driver does not know, 2 to 10 as toolReports.h names them.
  Answer<int64_t> moduleClass;
  PresetReading preset;
  Answer<bool> checksumOffload;

  /// Reason::NotOffered where the driver does not know the setting.
  Answer<bool> receiveCoalescing;

  Answer<bool> hasLink;
  Answer<std::string> medium;  ///< as interfaceMedium() names it; "Unknow" where it has no name
  Answer<int64_t> MTU;         ///< bytes

  bool operator==(const TenGigabitPortReading&) const = default;
};

/// The preset that the five settings amount to, 1 to 5 by the numbers of PerformanceMode; the first
/// reason when one of them is not known.
Answer<int64_t> presetMode(const PresetReading& preset);

/// The time as readings print it in documents: UTC, such as "2026-11-21T02:14:07Z".
std::string utcText(ReadingTime time);

/// The reading time that such a text names; nothing when it is none.
std::optional<ReadingTime> timeOfUtcText(const std::string& text);

}  // namespace corvane
