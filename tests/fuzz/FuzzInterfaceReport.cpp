#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "CLIParser/toolReports.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view report(reinterpret_cast<const char*>(data), size);
  const bool exact = report == "\tstatus: active\n" || report == "\tstatus: inactive\n";
  if (exact == (corvane::linkState(report) == corvane::LinkState::Unknown)) std::abort();
  if (corvane::interfaceMTU(report) < 0) std::abort();
  if (corvane::interfaceMedium(report).empty()) std::abort();
  return 0;
}
