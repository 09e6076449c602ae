// Whatever the bytes of a catalogue, there are rules or a problem, never both and never neither.

#include <cstddef>
#include <cstdint>
#include <span>

#include "OnlineUpdate/UpdateCatalogue.h"
#include "fuzz/Require.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const corvane::CatalogueReading reading = corvane::readCatalogue(std::span(data, size));
  corvane::fuzz::require(reading.rules.has_value() == reading.problem.empty(),
                         "rules or a problem");
  return 0;
}
