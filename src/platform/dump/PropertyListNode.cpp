#include "platform/dump/PropertyListNode.h"

#include <cstdlib>
#include <memory>
#include <utility>

namespace corvane {

namespace {

/// An entry takes two levels; the library walks a tree by recursion.
constexpr int mostNesting = 1024;

struct MemoryRelease {
  void operator()(void* memory) const { std::free(memory); }
};
template <typename Memory>
using OwnedMemory = std::unique_ptr<Memory, MemoryRelease>;

/// Whether a text may hold a zero byte, which XML forbids and the library's texts end at.
bool holdsZeroByte(std::string_view bytes) {
  if (bytes.find('\0') != std::string_view::npos) return true;
  for (size_t place = bytes.find("&#"); place != std::string_view::npos;
       place = bytes.find("&#", place + 1)) {
    std::string_view digits = bytes.substr(place + 2);
    if (digits.starts_with('x')) digits.remove_prefix(1);
    const size_t end = digits.find_first_not_of('0');
    if (end == std::string_view::npos || (end > 0 && digits[end] == ';')) return true;
  }
  return false;
}

/// Whether collections nest deeper than can be read safely, by their tags alone.
bool nestsTooDeep(std::string_view bytes) {
  int nesting = 0;
  for (size_t place = bytes.find('<'); place != std::string_view::npos;
       place = bytes.find('<', place + 1)) {
    const std::string_view tag = bytes.substr(place + 1);
    if (tag.starts_with("dict") || tag.starts_with("array")) {
      const std::string_view whole = tag.substr(0, tag.find('>'));
      if (!whole.ends_with('/') && ++nesting > mostNesting) return true;
    } else if (tag.starts_with("/dict") || tag.starts_with("/array")) {
      --nesting;
    }
  }
  return false;
}

PropertyValue textValue(plist_t node) {
  uint64_t size = 0;
  const char* text = plist_get_string_ptr(node, &size);
  return PropertyValue(text ? std::string(text, size) : std::string());
}

PropertyValue dataValue(plist_t node) {
  uint64_t size = 0;
  const char* bytes = plist_get_data_ptr(node, &size);
  return PropertyValue(bytes ? PropertyValue::Data(bytes, bytes + size) : PropertyValue::Data());
}

PropertyValue numberValue(plist_t node) {
  uint64_t number = 0;
  plist_get_uint_val(node, &number);
  return PropertyValue(static_cast<int64_t>(number));
}

PropertyValue booleanValue(plist_t node) {
  uint8_t truth = 0;
  plist_get_bool_val(node, &truth);
  return PropertyValue(truth != 0);
}

PropertyValue arrayValue(plist_t node, DumpProblems& problems) {
  PropertyValue::Array items;
  for (uint32_t index = 0; index < plist_array_get_size(node); ++index) {
    std::optional<PropertyValue> item =
        propertyListValue(plist_array_get_item(node, index), problems);
    if (item) items.push_back(std::move(*item));
  }
  return PropertyValue(std::move(items));
}

PropertyValue dictionaryValue(plist_t node, DumpProblems& problems) {
  PropertyValue::Dictionary entries;
  forEachPropertyListMember(node, [&](const char* key, plist_t item) {
    std::optional<PropertyValue> value = propertyListValue(item, problems);
    if (value) entries.insert_or_assign(key, std::move(*value));
  });
  return PropertyValue(std::move(entries));
}

}  // namespace

PropertyListTree::PropertyListTree(PropertyListTree&& other) noexcept
    : root_(std::exchange(other.root_, nullptr)) {}

std::optional<PropertyListTree> parseXmlPropertyList(std::string_view bytes) {
  if (bytes.size() > UINT32_MAX || holdsZeroByte(bytes) || nestsTooDeep(bytes)) {
    return std::nullopt;
  }
  plist_t root = nullptr;
  plist_from_xml(bytes.data(), static_cast<uint32_t>(bytes.size()), &root);
  if (!root) return std::nullopt;
  return PropertyListTree(root);
}

std::optional<PropertyValue> propertyListValue(plist_t node, DumpProblems& problems) {
  switch (plist_get_node_type(node)) {
    case PLIST_STRING:
      return textValue(node);
    case PLIST_DATA:
      return dataValue(node);
    case PLIST_UINT:
      return numberValue(node);
    case PLIST_BOOLEAN:
      return booleanValue(node);
    case PLIST_ARRAY:
      return arrayValue(node, problems);
    case PLIST_DICT:
      return dictionaryValue(node, problems);
    default:
      ++problems.unreadableValues;
      return std::nullopt;
  }
}

void forEachPropertyListMember(plist_t dictionary,
                               const std::function<void(const char* key, plist_t value)>& take) {
  plist_dict_iter position = nullptr;
  plist_dict_new_iter(dictionary, &position);
  const OwnedMemory<void> ownedPosition(position);
  while (true) {
    char* key = nullptr;
    plist_t value = nullptr;
    plist_dict_next_item(dictionary, position, &key, &value);
    const OwnedMemory<char> ownedKey(key);
    if (!value || !key) return;
    take(key, value);
  }
}

std::string propertyListText(plist_t dictionary, const char* key) {
  plist_t item = plist_dict_get_item(dictionary, key);
  if (!item || plist_get_node_type(item) != PLIST_STRING) return {};
  return *textValue(item).text();
}

}  // namespace corvane
