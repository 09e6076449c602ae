#include "platform/StructureLayout.h"

#include <algorithm>
#include <stdexcept>

namespace corvane {

namespace {

constexpr size_t bitsPerByte = 8;

template <typename Byte>
std::span<Byte> fieldBytes(std::span<Byte> structure, const StructureField& field) {
  if (field.offset > structure.size() || field.width > structure.size() - field.offset) {
    throw std::out_of_range("the structure ends before its field \"" + std::string(field.name) +
                            "\"");
  }
  return structure.subspan(field.offset, field.width);
}

}  // namespace

uint64_t StructureReader::number(const StructureField& field) const {
  const std::span<const uint8_t> bytes = fieldBytes(bytes_, field);
  uint64_t value = 0;
  for (size_t index = 0; index < std::min(bytes.size(), sizeof value); ++index) {
    value |= uint64_t{bytes[index]} << (index * bitsPerByte);
  }
  return value;
}

std::span<const uint8_t> StructureReader::bytes(const StructureField& field) const {
  return fieldBytes(bytes_, field);
}

std::string StructureReader::text(const StructureField& field) const {
  const std::span<const uint8_t> bytes = fieldBytes(bytes_, field);
  return {bytes.begin(), std::find(bytes.begin(), bytes.end(), uint8_t{0})};
}

void putNumber(std::span<uint8_t> structure, const StructureField& field, uint64_t value) {
  for (uint8_t& byte : fieldBytes(structure, field)) {
    byte = static_cast<uint8_t>(value);
    value >>= bitsPerByte;
  }
}

}  // namespace corvane
