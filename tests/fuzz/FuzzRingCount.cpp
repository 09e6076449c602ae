#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "CLIParser/toolReports.h"

// The first line of the input is the interface's name, the rest the table.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const size_t end = input.find('\n');
  const std::string_view name = input.substr(0, end);
  const std::string_view table = end == std::string_view::npos ? "" : input.substr(end + 1);
  const int64_t count = corvane::receiveRingCount(table, name);
  if (count < 0) std::abort();
  if (count != 0 && table.find(name) == std::string_view::npos) std::abort();
  return 0;
}
