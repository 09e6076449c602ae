#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace corvane {

/// The unsigned number of `width` bytes at `offset`, least significant byte first. The bytes must
/// be there.
inline uint64_t readLittleEndian(std::span<const uint8_t> bytes, size_t offset, size_t width) {
  uint64_t value = 0;
  for (size_t index = width; index > 0; --index) value = value << 8U | bytes[offset + index - 1];
  return value;
}

/// Puts the lowest `width` bytes of `value` at `offset`. The bytes must be there.
inline void writeLittleEndian(std::span<uint8_t> bytes, size_t offset, size_t width,
                              uint64_t value) {
  for (size_t index = 0; index < width; ++index) {
    bytes[offset + index] = static_cast<uint8_t>(value >> (8 * index));
  }
}

}  // namespace corvane
