// Any bytes as a registry dump in its text form.

#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/DumpTreeCheck.h"
#include "fuzz/Require.h"
#include "platform/dump/RegistryDumpBuilder.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const corvane::DumpReading reading =
      corvane::readTextDump(std::string(reinterpret_cast<const char*>(data), size));
  corvane::fuzz::require(reading.dump.has_value() == reading.problem.empty(),
                         "a dump or a problem");
  if (reading.dump) corvane::fuzz::checkDumpTree(*reading.dump);
  return 0;
}
