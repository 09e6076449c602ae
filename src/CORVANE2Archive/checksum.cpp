#include "CORVANE2Archive/checksum.h"

namespace corvane {

std::uint64_t CalcEEPROM16BitCheckSum(const std::uint8_t* buffer, std::uint64_t start,
                                      std::uint64_t end) {
  return VerifyEEPROM16BitCheckSum(buffer, start, end);
}

std::uint64_t VerifyEEPROM16BitCheckSum(const std::uint8_t* buffer, std::uint64_t start,
                                        std::uint64_t end) {
  // Low and high bytes are summed apart so that the compiler can use wide registers.
  std::uint64_t low = 0;
  std::uint64_t high = 0;
  for (std::uint64_t index = start; index < end; index += 2) {
    low += buffer[index];
    high += buffer[index + 1];
  }
  return low + 256 * high;
}

}  // namespace corvane
