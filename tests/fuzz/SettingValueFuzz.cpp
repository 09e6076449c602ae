// Any bytes as what the adapter's tool prints of a setting.

#include <cstddef>
#include <cstdint>

#include "CLIParser/toolReports.h"
#include "fuzz/Require.h"

using namespace corvane;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view report(reinterpret_cast<const char*>(data), size);
  const auto value = settingValue(report);
  fuzz::require(value.has_value() == (report.find('=') != std::string_view::npos),
                "a value follows an equals sign");
  fuzz::require(!value || value->find('=') == std::string::npos,
                "a value ends before another equals sign");
  fuzz::require(!value || leadingInteger(*value) >= 0, "a number is not negative");
  return 0;
}
