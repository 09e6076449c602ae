// Any bytes as a registry dump and as a system profile, both property lists.

#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/DumpTreeCheck.h"
#include "fuzz/Require.h"
#include "platform/dump/RegistryDumpBuilder.h"
#include "platform/dump/SystemProfile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  const corvane::DumpReading reading = corvane::readPropertyListDump(bytes);
  corvane::fuzz::require(reading.dump.has_value() == reading.problem.empty(),
                         "a dump or a problem");
  if (reading.dump) corvane::fuzz::checkDumpTree(*reading.dump);
  corvane::readSystemProfile(bytes);
  return 0;
}
