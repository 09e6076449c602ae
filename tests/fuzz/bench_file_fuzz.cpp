// Whatever a bench file holds, it is taken or refused; what is taken can be written and read again.

#include <cstdlib>
#include <string_view>

#include "platform/bench/BenchFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  try {
    const corvane::BenchState state = corvane::parseBench(text, "bench.json");
    if (corvane::parseBench(corvane::benchText(state), "bench.json") != state) std::abort();
  } catch (const corvane::BenchFileError&) {
    // Refused, as most inputs are.
  }
  return 0;
}
