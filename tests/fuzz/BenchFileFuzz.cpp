// Whatever a bench file holds, it is taken or refused; what is taken can be written and read again.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "fuzz/Require.h"
#include "platform/bench/file/BenchFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  try {
    const corvane::BenchState state = corvane::parseBench(text, "bench.json");
    corvane::fuzz::require(corvane::parseBench(corvane::benchText(state), "bench.json") == state,
                           "what is written is read again");
  } catch (const corvane::BenchFileError&) {
    // Refused, as most inputs are.
  }
  return 0;
}
