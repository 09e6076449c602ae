#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace corvane {

/// The simulated computer as plain values: what a bench file says and nothing more. Fields carry
/// the names of the file's keys; a key that the file leaves out has the value given here.

enum class BenchTopology { PointToPoint, ArbitratedLoop };

/// What the far end of a Fibre Channel link can do.
struct BenchPartner {
  std::vector<int64_t> speeds = {2000, 4000, 8000, 16000};  ///< in Mb/s
  std::optional<BenchTopology> topology;                    ///< nothing: takes either

  bool operator==(const BenchPartner&) const = default;
};

/// A module's identification EEPROM: a file beside the bench file, or its bytes in hexadecimal.
/// With both texts empty the cage is empty.
struct BenchTransceiver {
  std::string file;
  std::string hex;

  bool isPresent() const { return !file.empty() || !hex.empty(); }
  bool operator==(const BenchTransceiver&) const = default;
};

struct BenchFibreChannelPort {
  std::string note;
  std::string wwpn;  ///< eight pairs joined by ":", any case
  bool link = true;  ///< whether the cable leads to a partner that is switched on
  BenchPartner partner;
  int64_t speed = 0;                                     ///< configured, in Mb/s; 0 is automatic
  BenchTopology topology = BenchTopology::PointToPoint;  ///< configured
  int64_t hardAlpa = 0;
  int64_t queueDepth = 0;  ///< 0 is the driver's default
  BenchTransceiver transceiver;
  int64_t linkReturnsAt = 0;  ///< the end of a link drop, in milliseconds since 1970

  bool operator==(const BenchFibreChannelPort&) const = default;
};

/// The 10GbE driver's settings of one port by name, such as "RxRingSize". A name that is absent is
/// a setting that the driver does not know.
using BenchDriverSettings = std::map<std::string, int64_t>;

/// The settings as the driver has them when nobody has changed any.
BenchDriverSettings defaultDriverSettings();

struct BenchEthernetPort {
  std::string note;
  std::optional<std::string> interface;  ///< BSD name; nothing until the network stack has named it
  std::string mac;                       ///< six pairs joined by ":", any case
  bool enabled = true;
  bool link = true;
  std::string media = "10Gbase-T <full-duplex,flow-control>";  ///< of the link, when there is one
  int64_t mtu = 1500;
  std::string module;  ///< code word of the module report; empty without a cage or a report
  BenchDriverSettings settings = defaultDriverSettings();       ///< as they stand
  BenchDriverSettings savedSettings = defaultDriverSettings();  ///< loaded at the next plugging in

  bool operator==(const BenchEthernetPort&) const = default;
};

/// An adapter. The product decides the family and with it which of the two port lists is filled.
struct BenchAdapter {
  std::string note;
  std::string product;                         ///< one of benchProducts()
  bool attached = true;                        ///< whether it is plugged in
  int64_t timesPlugged = 0;                    ///< tells one stay on the chain from the next
  int64_t bridge = 1;                          ///< number of the host's downstream bridge
  int64_t hop = 1;                             ///< position on that bridge's chain
  std::string nodeWWN;                         ///< Fibre Channel only
  std::string firmware;                        ///< Fibre Channel only: the version that runs
  std::optional<std::string> pendingFirmware;  ///< flashed, runs once plugged in again
  std::vector<BenchFibreChannelPort> fibreChannelPorts;
  std::vector<BenchEthernetPort> ethernetPorts;

  bool operator==(const BenchAdapter&) const = default;
};

struct BenchPartition {
  std::string name;  ///< BSD name, such as "disk4s1"
  bool mounted = true;

  bool operator==(const BenchPartition&) const = default;
};

struct BenchDisk {
  std::string note;
  std::string name;                 ///< BSD name, such as "disk4"
  std::optional<std::string> port;  ///< the world wide port name it is reached through
  std::string bus = "SATA";         ///< of a disk that is on no adapter
  bool mounted = false;             ///< the whole disk as one volume
  std::vector<BenchPartition> partitions;

  bool operator==(const BenchDisk&) const = default;
};

/// A network interface that is not one of the adapters'.
struct BenchNetworkInterface {
  std::string note;
  std::string name;
  std::string mac;
  std::string kind = "Ethernet";  ///< "Ethernet", "Wi-Fi" or "IP over Thunderbolt"
  bool link = true;
  std::string media;
  int64_t mtu = 1500;

  bool operator==(const BenchNetworkInterface&) const = default;
};

/// A device of another maker on a Thunderbolt chain.
struct BenchThunderboltDevice {
  std::string note;
  std::string name;
  int64_t bridge = 1;
  int64_t hop = 1;
  int64_t vendorID = 1;
  int64_t modelID = 1;

  bool operator==(const BenchThunderboltDevice&) const = default;
};

struct BenchComputer {
  std::string model = "MacPro6,1";
  std::string osVersion = "12.6.1";

  bool operator==(const BenchComputer&) const = default;
};

struct BenchApplication {
  std::string version = "1.0.0.0";
  std::string copyright = "Copyright © 2026 Velmar. All rights reserved.";
  std::string plistURL = "update";

  bool operator==(const BenchApplication&) const = default;
};

struct BenchState {
  std::string note;
  double clockRate = 1;  ///< seconds of the bench in a second of real time
  BenchComputer computer;
  BenchApplication application;
  std::map<std::string, std::string> drivers;  ///< version by bundle name without ".kext"
  std::vector<BenchAdapter> adapters;
  std::vector<BenchDisk> disks;
  std::vector<BenchNetworkInterface> networkInterfaces;
  std::vector<BenchThunderboltDevice> thunderboltDevices;
  std::set<std::string> faults;  ///< the names of those that are on

  bool hasFault(const std::string& name) const { return faults.count(name) > 0; }

  /// The 10GbE port whose interface has that name, on an attached adapter; null when there is none.
  const BenchEthernetPort* findEthernetPort(const std::string& interface) const;
  BenchEthernetPort* findEthernetPort(const std::string& interface);

  bool operator==(const BenchState&) const = default;
};

/// Whether two world wide names or MAC addresses differ in nothing but the case of their letters.
bool isSameAddress(const std::string& left, const std::string& right);

}  // namespace corvane
