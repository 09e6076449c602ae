#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace corvane {

/// One field of a structure that crosses to a driver or comes out of a memory chip. Integers are
/// little-endian. Offset and width are in bytes.
struct StructureField {
  std::string_view name;
  size_t offset = 0;
  size_t width = 0;

  constexpr size_t end() const { return offset + width; }
};

/// Whether `fields` stand in rising order without overlapping and fit into `size` bytes.
template <typename Fields>
constexpr bool isLayoutWithin(const Fields& fields, size_t size) {
  size_t position = 0;
  for (const StructureField& field : fields) {
    if (field.offset < position || field.width == 0) return false;
    position = field.end();
  }
  return position <= size;
}

/// Reads fields out of a structure's bytes, which it does not own. A field that does not lie inside
/// the bytes throws std::out_of_range with the field's name.
class StructureReader {
 public:
  explicit StructureReader(std::span<const uint8_t> bytes) : bytes_(bytes) {}

  /// A little-endian unsigned integer of up to eight bytes.
  uint64_t number(const StructureField& field) const;

  std::span<const uint8_t> bytes(const StructureField& field) const;

  /// The characters up to the first zero byte, but never beyond the field. Blanks are kept.
  std::string text(const StructureField& field) const;

 private:
  std::span<const uint8_t> bytes_;
};

/// Writes the low bytes of `value` into the field, least significant first. Throws
/// std::out_of_range when the field does not lie inside the structure.
void putNumber(std::span<uint8_t> structure, const StructureField& field, uint64_t value);

}  // namespace corvane
