#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "CLIParser/toolReports.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view report(reinterpret_cast<const char*>(data), size);
  const auto value = corvane::settingValue(report);
  if (value.has_value() != (report.find('=') != std::string_view::npos)) std::abort();
  if (value && value->find('=') != std::string::npos) std::abort();
  if (value && corvane::leadingInteger(*value) < 0) std::abort();
  return 0;
}
