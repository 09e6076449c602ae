#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/DumpTreeCheck.h"
#include "platform/dump/RegistryDumpBuilder.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const corvane::DumpReading reading =
      corvane::readTextDump(std::string(reinterpret_cast<const char*>(data), size));
  if (reading.dump.has_value() != reading.problem.empty()) std::abort();
  if (reading.dump) corvane::checkDumpTree(*reading.dump);
  return 0;
}
