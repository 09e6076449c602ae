#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/StructureLayout.h"

/// The protocol of the Fibre Channel driver's user client: what each selector does and how the
/// structures lie that cross to the driver. Every call passes a structure in and gets one of the
/// same size out. All integers are little-endian; what no field covers is zero.
namespace corvane {

/// The connection type that IOServiceOpen is asked for.
inline constexpr uint32_t fibreChannelConnectionType = 0;

enum class FibreChannelSelector : uint32_t {
  ReadPortInformation = 2,
  TransferFirmwareImage = 3,
  SetTopology = 5,
  SetSpeed = 6,
  SetHardAlpa = 7,
  ReadTransceiver = 13,
  SetQueueDepth = 15,
};

/// Speeds in Mb/s, configured and current. The driver reports 0 or 1 for automatic.
inline constexpr uint64_t speedAutomatic = 0;
inline constexpr uint64_t speedAutomaticOf16G = 1;  ///< what the 16G firmware takes for automatic
inline constexpr uint64_t speed2G = 2000;
inline constexpr uint64_t speed4G = 4000;
inline constexpr uint64_t speed8G = 8000;
inline constexpr uint64_t speed16G = 16000;

inline constexpr uint64_t topologyPointToPoint = 0;
inline constexpr uint64_t topologyArbitratedLoop = 1;

inline constexpr uint64_t linkStateUp = 0;

/// The PCI device number of the one controller known by name.
inline constexpr uint32_t corvane2DeviceNumber = 0xE200;

/// What the driver means by a queue depth of 0.
inline constexpr uint64_t defaultQueueDepth = 512;

/// Read port information: the reply. The request is all zero.
struct PortInfoStruct {
  static constexpr size_t size = 104;

  static constexpr StructureField pciVendor{"PCI vendor number", 0, 8};
  static constexpr StructureField pciDevice{"PCI device number", 8, 8};
  static constexpr StructureField nodeName{"world wide node name", 16, 8};
  static constexpr StructureField portName{"world wide port name", 24, 8};
  static constexpr StructureField firmwareVersion{"firmware version", 32, 44};
  static constexpr StructureField linkState{"link state", 76, 4};
  static constexpr StructureField currentSpeed{"current speed", 80, 4};
  static constexpr StructureField currentTopology{"current topology", 84, 4};
  static constexpr StructureField hardAlpa{"hard AL_PA", 88, 4};
  static constexpr StructureField configuredSpeed{"configured speed", 92, 4};
  static constexpr StructureField configuredTopology{"configured topology", 96, 4};
  static constexpr StructureField queueDepth{"queue depth", 100, 4};

  static constexpr std::array fields{
      pciVendor,    pciDevice,       nodeName, portName,        firmwareVersion,    linkState,
      currentSpeed, currentTopology, hardAlpa, configuredSpeed, configuredTopology, queueDepth};
};
static_assert(isLayoutWithin(PortInfoStruct::fields, PortInfoStruct::size));

/// Read transceiver: the request carries the port's index, the reply the serial identification area
/// of the module (SFF-8472, address A0h, bytes 0 to 95) and, from the driver, whether there is one.
struct SfpInfoStruct {
  static constexpr size_t size = 104;
  static constexpr size_t eepromSize = 96;

  static constexpr StructureField identifier{"identifier", 0, 1};
  static constexpr StructureField connector{"connector", 2, 1};
  static constexpr StructureField complianceCodes{"transceiver compliance codes", 3, 8};
  static constexpr StructureField encoding{"encoding", 11, 1};
  static constexpr StructureField BitRate_100mbs{"nominal bit rate in 100 MBd", 12, 1};
  static constexpr StructureField vendorName{"vendor name", 20, 16};
  static constexpr StructureField vendorOUI{"vendor OUI", 37, 3};
  static constexpr StructureField vendorPartNumber{"vendor part number", 40, 16};
  static constexpr StructureField vendorRevision{"vendor revision", 56, 4};
  static constexpr StructureField vendorSerialNumber{"vendor serial number", 68, 16};
  static constexpr StructureField dateCode{"date code", 84, 6};
  static constexpr StructureField modulePresent{"module present", 96, 4};
  static constexpr StructureField portIndex{"port index", 100, 4};  ///< of the request

  static constexpr std::array fields{
      identifier, connector,     complianceCodes,  encoding,       BitRate_100mbs,
      vendorName, vendorOUI,     vendorPartNumber, vendorRevision, vendorSerialNumber,
      dateCode,   modulePresent, portIndex};
};
static_assert(isLayoutWithin(SfpInfoStruct::fields, SfpInfoStruct::size));

/// Transfer firmware image: the request names memory of the calling process.
struct FwImageStruct {
  static constexpr size_t size = 16;

  static constexpr StructureField imageSize{"image size", 0, 4};
  static constexpr StructureField bufferAddress{"buffer address", 8, 8};

  static constexpr std::array fields{imageSize, bufferAddress};
};
static_assert(isLayoutWithin(FwImageStruct::fields, FwImageStruct::size));

struct TopologyStruct {
  static constexpr size_t size = 2;
  static constexpr StructureField topology{"topology", 1, 1};
};

struct SpeedStruct {
  static constexpr size_t size = 8;
  static constexpr StructureField speed{"speed", 0, 4};
};

struct HardAlpaStruct {
  static constexpr size_t size = 4;
  static constexpr StructureField hardAlpa{"hard AL_PA", 0, 4};
};

struct QueueDepthStruct {
  static constexpr size_t size = 4;
  static constexpr StructureField queueDepth{"queue depth", 0, 4};
};

}  // namespace corvane
