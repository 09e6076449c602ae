#include "CORVANE2Archive/checksum.h"

#include <algorithm>

namespace corvane {

namespace {

/// The low bytes of so many bytes cannot overflow 32 bits.
constexpr std::uint64_t bytesThatFit = std::uint64_t{2} * 65536;

}  // namespace

std::uint64_t CalcEEPROM16BitCheckSum(const std::uint8_t* buffer, std::uint64_t start,
                                      std::uint64_t end) {
  return VerifyEEPROM16BitCheckSum(buffer, start, end);
}

std::uint64_t VerifyEEPROM16BitCheckSum(const std::uint8_t* buffer, std::uint64_t start,
                                        std::uint64_t end) {
  // Low and high bytes are summed apart and in 32 bits for as long as they fit, so
  // that the compiler can use wide registers.
  std::uint64_t sum = 0;
  for (std::uint64_t index = start; index < end;) {
    const std::uint64_t stop = std::min(end, index + bytesThatFit);
    std::uint32_t low = 0;
    std::uint32_t high = 0;
    for (; index < stop; index += 2) {
      low += buffer[index];
      high += buffer[index + 1];
    }
    sum += low + std::uint64_t{256} * high;
  }
  return sum;
}

}  // namespace corvane
