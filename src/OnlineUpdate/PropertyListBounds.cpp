#include "OnlineUpdate/PropertyListBounds.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

namespace corvane {

namespace {

constexpr int deepestNesting = 32;
constexpr uint64_t mostObjects = 20'000;
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

  /// Whether no object is reached by more than one way, save for plain values, and none too deep.
  /// Every collection is then visited once, so the walk is as long as the list.
  bool isShallowTree() {
    std::vector<bool> visited(count_, false);
    std::vector<Visit> pending = {{root_, 0}};
    while (!pending.empty()) {
      const Visit visit = pending.back();
      pending.pop_back();
      const auto references = referencesOf(visit.object);
      if (!references) return false;
      if (references->empty()) continue;
      if (visited[visit.object] || visit.depth == deepestNesting) return false;
      visited[visit.object] = true;
      for (const uint64_t object : *references) pending.push_back({object, visit.depth + 1});
    }
    return true;
  }

 private:
  struct Visit {
    uint64_t object;
    int depth;
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

  /// The objects that a collection refers to; none for a plain value, nothing when they do not lie
  /// within the list.
  std::optional<std::vector<uint64_t>> referencesOf(uint64_t object) const {
    constexpr uint8_t arrayMarker = 0xA0;
    constexpr uint8_t setMarker = 0xC0;
    constexpr uint8_t dictionaryMarker = 0xD0;
    uint64_t position = number(*part(table_ + object * offsetSize_, offsetSize_));
    const auto marker = part(position, 1);
    if (!marker) return std::nullopt;
    const uint8_t kind = marker->front() & 0xF0;
    if (kind != arrayMarker && kind != setMarker && kind != dictionaryMarker) {
      return std::vector<uint64_t>();
    }
    ++position;
    auto size = collectionSize(marker->front() & 0x0F, position);
    if (!size || *size > mostObjects) return std::nullopt;
    if (kind == dictionaryMarker) *size *= 2;
    return readReferences(position, *size);
  }

  /// Small sizes stand in the marker, larger ones in a number after it.
  std::optional<uint64_t> collectionSize(uint8_t nibble, uint64_t& position) const {
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

/// Counts opening and closing tags of any name; an element that closes itself opens nothing.
bool isShallowXml(std::string_view text) {
  int depth = 0;
  for (size_t tag = text.find('<'); tag != std::string_view::npos; tag = text.find('<', tag + 1)) {
    const std::string_view rest = text.substr(tag + 1);
    if (rest.empty() || rest.front() == '?' || rest.front() == '!') continue;
    if (rest.front() == '/') {
      --depth;
      continue;
    }
    const size_t end = rest.find('>');
    const bool closesItself = end != std::string_view::npos && end > 0 && rest[end - 1] == '/';
    if (!closesItself && ++depth > deepestNesting) return false;
  }
  return true;
}

}  // namespace

bool isBinaryPropertyList(std::span<const uint8_t> bytes) {
  return bytes.size() >= binaryMagic.size() &&
         std::equal(binaryMagic.begin(), binaryMagic.end(), bytes.begin());
}

bool isWithinPropertyListBounds(std::span<const uint8_t> bytes) {
  if (isBinaryPropertyList(bytes)) {
    BinaryObjects objects(bytes);
    return objects.readTrailer() && objects.isShallowTree();
  }
  return isShallowXml({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

}  // namespace corvane
