#include "OnlineUpdate/PropertyListBounds.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane {

namespace {

constexpr int deepestNesting = 32;
constexpr uint64_t mostObjects = 20'000;
constexpr uint64_t mostBytesOfValues = 8 << 20;
constexpr size_t mostXmlCollections = 2'000;
constexpr std::string_view binaryMagic = "bplist00";

/// A binary list as its last 32 bytes describe it: objects one after another, and a table of their
/// offsets. Numbers are big-endian.
class BinaryObjects {
 public:
  explicit BinaryObjects(std::span<const uint8_t> bytes) : bytes_(bytes) {}

  /// Whether the description itself holds.
  bool readTrailer() {
    constexpr size_t trailerSize = 32;
    if (bytes_.size() < binaryMagic.size() + trailerSize) return false;
    const auto trailer = bytes_.last(trailerSize);
    offsetSize_ = trailer[6];
    referenceSize_ = trailer[7];
    count_ = number(trailer.subspan(8, 8));
    root_ = number(trailer.subspan(16, 8));
    table_ = number(trailer.subspan(24, 8));
    return offsetSize_ >= 1 && offsetSize_ <= 8 && referenceSize_ >= 1 && referenceSize_ <= 8 &&
           count_ <= mostObjects && root_ < count_ && table_ <= bytes_.size() &&
           count_ * offsetSize_ <= bytes_.size() - table_;
  }

  /// Whether the list stays small and shallow once it is written out. No collection is reached by
  /// more than one way; a plain value may be, and counts each time, as the library copies it.
  bool isSmallTree() {
    std::vector<bool> visited(count_, false);
    std::vector<Visit> pending = {{root_, 0}};
    uint64_t reached = 1;
    uint64_t bytesOfValues = 0;
    while (!pending.empty()) {
      const Visit visit = pending.back();
      pending.pop_back();
      const auto object = objectAt(visit.object);
      if (!object) return false;
      reached += object->references.size();
      bytesOfValues += object->bytesOfValue;
      if (reached > mostObjects || bytesOfValues > mostBytesOfValues) return false;
      if (object->references.empty()) continue;
      if (visited[visit.object] || visit.depth == deepestNesting) return false;
      visited[visit.object] = true;
      for (const uint64_t member : object->references) pending.push_back({member, visit.depth + 1});
    }
    return true;
  }

 private:
  struct Visit {
    uint64_t object;
    int depth;
  };

  struct Object {
    std::vector<uint64_t> references;  ///< of a collection
    uint64_t bytesOfValue = 0;         ///< of a text or data
  };

  static uint64_t number(std::span<const uint8_t> bytes) {
    uint64_t value = 0;
    for (const uint8_t byte : bytes) value = value << 8 | byte;
    return value;
  }

  std::optional<std::span<const uint8_t>> part(uint64_t offset, uint64_t size) const {
    if (offset > bytes_.size() || size > bytes_.size() - offset) return std::nullopt;
    return bytes_.subspan(offset, size);
  }

  /// Nothing when the object does not lie within the list.
  std::optional<Object> objectAt(uint64_t object) const {
    constexpr uint8_t dataMarker = 0x40;
    constexpr uint8_t textMarker = 0x50;
    constexpr uint8_t wideTextMarker = 0x60;
    constexpr uint8_t arrayMarker = 0xA0;
    constexpr uint8_t setMarker = 0xC0;
    constexpr uint8_t dictionaryMarker = 0xD0;
    uint64_t position = number(*part(table_ + object * offsetSize_, offsetSize_));
    const auto marker = part(position, 1);
    if (!marker) return std::nullopt;
    const uint8_t kind = marker->front() & 0xF0;
    const bool isValue = kind == dataMarker || kind == textMarker || kind == wideTextMarker;
    const bool isCollection = kind == arrayMarker || kind == setMarker || kind == dictionaryMarker;
    if (!isValue && !isCollection) return Object{};
    ++position;
    auto size = objectSize(marker->front() & 0x0F, position);
    if (!size || *size > (isValue ? bytes_.size() : mostObjects)) return std::nullopt;
    if (kind == dictionaryMarker || kind == wideTextMarker) *size *= 2;
    if (isValue) return Object{{}, *size};
    auto references = readReferences(position, *size);
    if (!references) return std::nullopt;
    return Object{std::move(*references)};
  }

  /// Small sizes stand in the marker, larger ones in a number after it.
  std::optional<uint64_t> objectSize(uint8_t nibble, uint64_t& position) const {
    constexpr uint8_t sizeFollows = 0x0F;
    if (nibble != sizeFollows) return nibble;
    const auto marker = part(position, 1);
    if (!marker) return std::nullopt;
    const uint64_t bytesOfSize = uint64_t{1} << (marker->front() & 0x03);
    const auto size = part(position + 1, bytesOfSize);
    if (!size) return std::nullopt;
    position += 1 + bytesOfSize;
    return number(*size);
  }

  std::optional<std::vector<uint64_t>> readReferences(uint64_t position, uint64_t count) const {
    const auto bytes = part(position, count * referenceSize_);
    if (!bytes) return std::nullopt;
    std::vector<uint64_t> references;
    for (uint64_t index = 0; index < count; ++index) {
      references.push_back(number(bytes->subspan(index * referenceSize_, referenceSize_)));
      if (references.back() >= count_) return std::nullopt;
    }
    return references;
  }

  std::span<const uint8_t> bytes_;
  size_t offsetSize_ = 0;
  size_t referenceSize_ = 0;
  uint64_t count_ = 0;
  uint64_t root_ = 0;
  uint64_t table_ = 0;
};

/// Collections nest no deeper than there are opening tags of theirs. All are counted, wherever they
/// stand, for what a comment or a quotation hides is for the library to say.
bool hasFewCollections(std::string_view text) {
  size_t count = 0;
  for (const std::string_view tag : {"<dict", "<array"}) {
    for (size_t found = text.find(tag); found != std::string_view::npos;
         found = text.find(tag, found + tag.size())) {
      ++count;
    }
  }
  return count <= mostXmlCollections;
}

}  // namespace

bool isBinaryPropertyList(std::span<const uint8_t> bytes) {
  return bytes.size() >= binaryMagic.size() &&
         std::equal(binaryMagic.begin(), binaryMagic.end(), bytes.begin());
}

bool isWithinPropertyListBounds(std::span<const uint8_t> bytes) {
  if (isBinaryPropertyList(bytes)) {
    BinaryObjects objects(bytes);
    return objects.readTrailer() && objects.isSmallTree();
  }
  return hasFewCollections({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

}  // namespace corvane
