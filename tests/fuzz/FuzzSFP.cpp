// Decodes any bytes as a driver's reply about a transceiver and as a dump of its memory.

#include <cstdint>
#include <cstdlib>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>

#include "FibreChannelProtocol.h"
#include "SFPDecoder.h"

namespace {

using namespace corvane;

void require(bool holds) {
  if (!holds) std::abort();
}

void requireText(const std::optional<std::string>& text, bool set, size_t longest) {
  require(text.has_value() == set);
  require(!text || text->size() <= longest);
}

void checkDescription(const SFPDescription& module) {
  const bool present = module.result != SFPResult::NoModule;
  const bool usable = module.result == SFPResult::Usable;
  require(module.bitRate.has_value() == present);
  requireText(module.Transceiver, present, 3);
  requireText(module.TransceiverCode, present, 23);
  requireText(module.Bitrate, present, 7);
  requireText(module.VendorName, usable, SfpInfoStruct::vendorName.width);
  requireText(module.VendorOUI, usable, 8);
  requireText(module.VendorPN, usable, SfpInfoStruct::vendorPartNumber.width);
  requireText(module.VendorRev, usable, SfpInfoStruct::vendorRevision.width);
  requireText(module.VendorSN, usable, SfpInfoStruct::vendorSerialNumber.width);
  requireText(module.ManuData, usable, 8);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::span<const uint8_t> bytes(data, size);
  try {
    checkDescription(decodeSFP(bytes));
    require(size >= SfpInfoStruct::size - SfpInfoStruct::portIndex.width);
  } catch (const std::out_of_range&) {
    require(size < SfpInfoStruct::size);
  }
  try {
    const SFPDescription module = decodeSFP(sfpReplyForEEPROM(bytes));
    require(module.result != SFPResult::NoModule);
    checkDescription(module);
  } catch (const std::out_of_range&) {
    require(size < SfpInfoStruct::eepromSize);
  }
  return 0;
}
