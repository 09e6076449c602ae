#pragma once

#include <cstdint>

namespace corvane {

/// Adds up the 16-bit little-endian words of `buffer` that begin at the indices
/// `start`, `start + 2`, ... below `end`. The sum is not truncated.
///
/// `end` bounds where a word begins, not where it ends: the word that begins at
/// `end - 1` is added too, so `buffer[end]` must be readable when `end - start`
/// is odd. Does nothing but read `buffer`; safe on any thread.
std::uint64_t CalcEEPROM16BitCheckSum(const std::uint8_t* buffer, std::uint64_t start,
                                      std::uint64_t end);

/// The same sum. It compares nothing, whatever its name suggests.
std::uint64_t VerifyEEPROM16BitCheckSum(const std::uint8_t* buffer, std::uint64_t start,
                                        std::uint64_t end);

}  // namespace corvane
