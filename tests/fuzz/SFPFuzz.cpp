// Decodes any bytes as a driver's reply about a transceiver and as a dump of its memory.

#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>

#include "fibre_channel/FibreChannelProtocol.h"
#include "fibre_channel/SFPDecoder.h"
#include "fuzz/Require.h"

using namespace corvane;

namespace {
void requireText(const std::optional<std::string>& text, bool set, size_t longest) {
  fuzz::require(text.has_value() == set, "a text is set as the result says");
  fuzz::require(!text || text->size() <= longest, "a text fits its field");
}

void checkDescription(const SFPDescription& module) {
  const bool present = module.result != SFPResult::NoModule;
  const bool usable = module.result == SFPResult::Usable;
  fuzz::require(module.bitRate.has_value() == present, "a module that is present has a bit rate");
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
    fuzz::require(size >= SfpInfoStruct::size - SfpInfoStruct::portIndex.width,
                  "only a whole reply is decoded");
  } catch (const std::out_of_range&) {
    fuzz::require(size < SfpInfoStruct::size, "a whole reply is decoded");
  }
  try {
    const SFPDescription module = decodeSFP(sfpReplyForEEPROM(bytes));
    fuzz::require(module.result != SFPResult::NoModule, "a dump is of a module that is present");
    checkDescription(module);
  } catch (const std::out_of_range&) {
    fuzz::require(size < SfpInfoStruct::eepromSize, "a whole dump is decoded");
  }
  return 0;
}
