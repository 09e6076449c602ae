#pragma once

#include <cstdio>
#include <cstdlib>

namespace corvane::fuzz {

/// Ends the run with the place named, so that the fuzzer keeps the input.
inline void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "violated: %s\n", what);
  std::abort();
}

}  // namespace corvane::fuzz
