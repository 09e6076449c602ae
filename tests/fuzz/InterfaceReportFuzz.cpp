// Any bytes as what ifconfig prints of an interface.

#include <cstddef>
#include <cstdint>

#include "CLIParser/toolReports.h"
#include "fuzz/Require.h"

using namespace corvane;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view report(reinterpret_cast<const char*>(data), size);
  const bool exact = report == "\tstatus: active\n" || report == "\tstatus: inactive\n";
  fuzz::require(exact == (linkState(report) != LinkState::Unknown), "a state is a whole line");
  fuzz::require(interfaceMTU(report) >= 0, "an MTU is not negative");
  fuzz::require(!interfaceMedium(report).empty(), "a medium has a text");
  return 0;
}
