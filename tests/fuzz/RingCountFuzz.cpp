// The first line of the input is the interface's name, the rest the table of its rings.

#include <cstddef>
#include <cstdint>

#include "CLIParser/toolReports.h"
#include "fuzz/Require.h"

using namespace corvane;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const size_t end = input.find('\n');
  const std::string_view name = input.substr(0, end);
  const std::string_view table = end == std::string_view::npos ? "" : input.substr(end + 1);
  const int64_t count = receiveRingCount(table, name);
  fuzz::require(count >= 0, "a count is not negative");
  fuzz::require(count == 0 || table.find(name) != std::string_view::npos,
                "rings of an interface that the table names");
  return 0;
}
