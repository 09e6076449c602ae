#include <cstdlib>
#include <span>

#include "OnlineUpdate/UpdateCatalogue.h"

/// Whatever the bytes, there are rules or a problem, never both and never neither.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const corvane::CatalogueReading reading = corvane::readCatalogue(std::span(data, size));
  if (reading.rules.has_value() != reading.problem.empty()) std::abort();
  return 0;
}
