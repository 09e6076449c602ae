#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "fibre_channel/FibreChannelProtocol.h"
#include "platform/Dispatch.h"
#include "platform/Log.h"
#include "platform/Registry.h"
#include "platform/UserClient.h"

namespace corvane {

struct SFPDescription;

/// What a driver answered about a transceiver, beside the texts that are made of it.
struct TransceiverReply {
  Status status = statusSuccess;  ///< of opening the connection or of the call
  std::array<uint8_t, SfpInfoStruct::eepromSize> eeprom{};
};

/// What the Fibre Channel driver tells of one port, and the operations on that port.
///
/// Every operation takes the port's registry service, opens a fresh connection to the driver, makes
/// one call and releases the connection; it blocks its caller until the driver has answered. The
/// reading operations fill the properties and belong to one thread at a time; the changing ones
/// touch no property, so they may run beside a reading.
class CorvaneAPI {
 public:
  /// The interfaces outlive the object.
  CorvaneAPI(UserClient& userClient, Dispatch& dispatch, Log& log);

  // Filled by GetCorvaneInfoFunction.
  uint64_t linkState = 0;        ///< 0 link up, anything else no link
  uint64_t portSpeed = 0;        ///< speed of the link in Mb/s; 0 automatic or unknown
  uint64_t settingSpeed = 0;     ///< configured speed in Mb/s; 0 automatic
  uint64_t portTopology = 0;     ///< topology of the link: 0 point to point, 1 arbitrated loop
  uint64_t settingTopology = 0;  ///< configured topology, same codes
  uint64_t pcivendor = 0;        ///< PCI vendor number of the port's controller
  uint64_t hard_alpa = 0;        ///< configured hard AL_PA
  uint64_t queueDepth = 0;       ///< device queue depth; 512 when the driver reports 0
  std::string WWNN;              ///< world wide node name, eight upper-case pairs joined by ":"
  std::string WWPN;              ///< world wide port name, same form
  std::string fwVer;             ///< firmware version as the driver gives it
  std::string pcidevice;         ///< model text: "Velmar Corvane2" or "Unknow"

  /// Whether a hard AL_PA is in use; kept by the pages.
  uint64_t hardAPLA_check = 0;

  // Filled by GetCorvaneSFP; unset until a module has told them.
  std::optional<std::string> Transceiver;
  std::optional<std::string> Connector;
  std::optional<std::string> TransceiverCode;
  std::optional<std::string> SerialEncoding;
  std::optional<std::string> Bitrate;
  std::optional<std::string> VendorName;
  std::optional<std::string> VendorOUI;
  std::optional<std::string> VendorPN;
  std::optional<std::string> VendorRev;
  std::optional<std::string> VendorSN;
  std::optional<std::string> ManuData;

  /// Reads the port's information. A refused call leaves the properties as a reply of zeros would;
  /// what the driver answered is stored in `driverStatus`, if given.
  void GetCorvaneInfoFunction(RegistryHandle service, Status* driverStatus = nullptr);

  /// Reads the port's transceiver. `selectPort` is the port's index, 0 or 1. Returns 0 when a
  /// usable module was found and all texts are set, 1 when there is none (nothing changes), 2 when
  /// its speed does not suit (the texts up to the bit rate are set, the vendor's keep their former
  /// values). A refused call reads as no module; what the driver answered is stored in `reply`, if
  /// given.
  int64_t GetCorvaneSFP(RegistryHandle service, uint32_t selectPort,
                        TransceiverReply* reply = nullptr);

  /// Each changes one setting of the port and returns 0 when the driver took it, else 1. What the
  /// driver answered is stored in `driverStatus`, if given.
  int64_t setTopologyFunction(RegistryHandle service, uint64_t topology,
                              Status* driverStatus = nullptr) const;
  int64_t setSpeedFunction(RegistryHandle service, uint64_t speed,
                           Status* driverStatus = nullptr) const;
  int64_t setHardAlpaFunction(RegistryHandle service, uint64_t alpa,
                              Status* driverStatus = nullptr) const;

  /// The same for the device's queue depth, but a connection that cannot be opened stops the
  /// program.
  int64_t set_queue_depth(RegistryHandle service, uint32_t depth,
                          Status* driverStatus = nullptr) const;

  /// Hands the firmware image in the file at `path` to the driver, which programs the controller
  /// during the call: minutes may pass, never call it on the main queue. A file that cannot be
  /// opened is tried three times, a second apart. Returns 0 when the image was handed over,
  /// whatever the driver answered, and 1 when the file could not be opened or memory ran out. What
  /// the driver answered is stored in `driverStatus`, if given, when it was asked at all.
  int64_t UpgradeELXFWUserClient(RegistryHandle service, const std::string& path,
                                 Status* driverStatus = nullptr) const;

 private:
  void takeModule(const SFPDescription& module);

  UserClient& userClient_;
  Dispatch& dispatch_;
  Log& log_;
};

}  // namespace corvane
