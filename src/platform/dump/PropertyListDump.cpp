#include <plist/plist.h>

#include <cstdlib>
#include <utility>

#include "platform/dump/PropertyListNode.h"
#include "platform/dump/RegistryDumpBuilder.h"

namespace corvane {

namespace {

constexpr const char* nameKey = "IORegistryEntryName";
constexpr const char* locationKey = "IORegistryEntryLocation";
constexpr const char* identityKey = "IORegistryEntryID";
constexpr const char* classKey = "IOObjectClass";
constexpr const char* childrenKey = "IORegistryEntryChildren";

/// Each entry is kept as a small binary property list of its own, without its children.
class PropertyListForm : public DumpForm {
 public:
  DumpHeader header(std::string_view entry, std::string& keep) const override {
    const PropertyListTree tree = parsed(entry);
    const std::string name = propertyListText(tree.root(), nameKey);
    const std::string location = propertyListText(tree.root(), locationKey);
    const std::string className = propertyListText(tree.root(), classKey);
    keep = name + location + className;
    const std::string_view kept = keep;
    DumpHeader header;
    header.name = kept.substr(0, name.size());
    header.location = kept.substr(name.size(), location.size());
    header.className = kept.substr(name.size() + location.size());
    return header;
  }

  PropertyValue::Dictionary properties(std::string_view entry,
                                       DumpProblems& problems) const override {
    const PropertyListTree tree = parsed(entry);
    for (const char* key : {nameKey, locationKey, identityKey, classKey}) {
      plist_dict_remove_item(tree.root(), key);
    }
    const std::optional<PropertyValue> value = propertyListValue(tree.root(), problems);
    return value && value->dictionary() ? *value->dictionary() : PropertyValue::Dictionary();
  }

  /// The binary form keeps plain texts as they are and all others in 16-bit units.
  bool mayHold(std::string_view entry, std::string_view text) const override {
    const bool plain =
        text.find_first_not_of(std::string_view("abcdefghijklmnopqrstuvwxyz"
                                                "ABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                                "0123456789.-_ ")) == std::string_view::npos;
    return !plain || entry.find(text) != std::string_view::npos;
  }

  /// No terminal cuts a property list.
  std::optional<std::string_view> cutText(std::string_view, std::string_view) const override {
    return std::nullopt;
  }

 private:
  static PropertyListTree parsed(std::string_view entry) {
    plist_t root = nullptr;
    plist_from_bin(entry.data(), static_cast<uint32_t>(entry.size()), &root);
    return PropertyListTree(root);
  }
};

/// Walks the tree from the top and keeps each entry without its children.
class TreeReader {
 public:
  void read(plist_t top) {
    if (plist_get_node_type(top) == PLIST_ARRAY) {
      readAll(top, 0);
    } else {
      readEntry(top, 0);
    }
  }

  bool foundNothing() const { return bytes_.empty(); }
  bool tooLarge() const { return tooLarge_; }

  DumpReading finish() {
    bytes_.shrink_to_fit();
    return {builder_.finish(std::move(bytes_), std::make_unique<PropertyListForm>(), problems_),
            {}};
  }

 private:
  void readAll(plist_t list, size_t depth) {
    for (uint32_t index = 0; index < plist_array_get_size(list); ++index) {
      readEntry(plist_array_get_item(list, index), depth);
    }
  }

  void readEntry(plist_t node, size_t depth) {
    if (plist_get_node_type(node) != PLIST_DICT || propertyListText(node, nameKey).empty()) {
      ++problems_.unreadableValues;
      return;
    }
    keep(withoutChildren(node).root(), depth);
    plist_t children = plist_dict_get_item(node, childrenKey);
    if (children) readChildren(children, depth + 1);
  }

  static PropertyListTree withoutChildren(plist_t node) {
    PropertyListTree entry(plist_new_dict());
    forEachPropertyListMember(node, [&](const char* key, plist_t value) {
      if (std::string_view(key) != childrenKey) {
        plist_dict_set_item(entry.root(), key, plist_copy(value));
      }
    });
    return entry;
  }

  void readChildren(plist_t children, size_t depth) {
    if (plist_get_node_type(children) == PLIST_ARRAY) {
      readAll(children, depth);
    } else {
      readEntry(children, depth);
    }
  }

  void keep(plist_t node, size_t depth) {
    char* entry = nullptr;
    uint32_t size = 0;
    plist_to_bin(node, &entry, &size);
    tooLarge_ = tooLarge_ || bytes_.size() + size > mostDumpBytes;
    if (entry && !tooLarge_) {
      bytes_.append(entry, size);
      builder_.add(bytes_.size() - size, bytes_.size(), depth);
    }
    std::free(entry);
  }

  RegistryDumpBuilder builder_;
  std::string bytes_;
  DumpProblems problems_;
  bool tooLarge_ = false;
};

}  // namespace

DumpReading readPropertyListDump(std::string bytes) {
  if (bytes.starts_with("bplist")) {
    return {std::nullopt,
            "It is a property list in binary form; \"plutil -convert xml1\" makes it readable."};
  }
  const std::optional<PropertyListTree> tree = parseXmlPropertyList(bytes);
  if (!tree) return {std::nullopt, "It is a property list that is not well formed."};
  bytes = std::string();
  TreeReader reader;
  reader.read(tree->root());
  const bool emptyList =
      plist_get_node_type(tree->root()) == PLIST_ARRAY && plist_array_get_size(tree->root()) == 0;
  if (reader.foundNothing() && !emptyList) {
    return {std::nullopt, "It is a property list, but of no device registry."};
  }
  if (reader.tooLarge()) return {std::nullopt, "It is larger than 4 GB."};
  return reader.finish();
}

}  // namespace corvane
