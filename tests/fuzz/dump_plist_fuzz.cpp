#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/DumpTreeCheck.h"
#include "platform/dump/RegistryDumpBuilder.h"
#include "platform/dump/SystemProfile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  const corvane::DumpReading reading = corvane::readPropertyListDump(bytes);
  if (reading.dump.has_value() != reading.problem.empty()) std::abort();
  if (reading.dump) corvane::checkDumpTree(*reading.dump);
  corvane::readSystemProfile(bytes);
  return 0;
}
