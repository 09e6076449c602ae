#include "cli/bench-tools/RegistryLister.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "cli/bench-tools/PropertyList.h"
#include "cli/bench-tools/RegistryPrinter.h"
#include "platform/bench/tree/RegistryTree.h"

namespace corvane {

namespace {

constexpr const char* usage = "usage: ioreg [-l] [-a] [-x] [-w WIDTH] [-r (-n NAME | -c CLASS)]";

using Roots = std::vector<const RegistryTreeEntry*>;

struct ListingRequest {
  RegistryPrintStyle style;
  bool asPropertyList = false;
  bool subtrees = false;
  std::string name;
  std::string className;
};

class ArgumentReader {
 public:
  explicit ArgumentReader(const ToolArguments& arguments) : arguments_(arguments) {}

  /// Nothing for words that the tool does not know.
  std::optional<ListingRequest> read() {
    while (position_ < arguments_.size()) {
      if (!readOption(arguments_[position_++])) return std::nullopt;
    }
    const bool hasCondition = !request_.name.empty() || !request_.className.empty();
    if (request_.subtrees != hasCondition) return std::nullopt;
    return request_;
  }

 private:
  bool readOption(const std::string& word) {
    if (word.size() < 2 || word[0] != '-') return false;
    const char option = word[1];
    if (option == 'w') return readWidth(valueOf(word));
    if (option == 'n') return readText(valueOf(word), request_.name);
    if (option == 'c') return readText(valueOf(word), request_.className);
    return std::all_of(word.begin() + 1, word.end(), [this](char flag) { return setFlag(flag); });
  }

  bool setFlag(char flag) {
    switch (flag) {
      case 'l':
        return request_.style.properties = true;
      case 'a':
        return request_.asPropertyList = true;
      case 'x':
        return request_.style.hexadecimal = true;
      case 'r':
        return request_.subtrees = true;
      default:
        return false;
    }
  }

  /// The value of an option, glued to it or the next word.
  std::optional<std::string> valueOf(const std::string& word) {
    if (word.size() > 2) return word.substr(2);
    if (position_ == arguments_.size()) return std::nullopt;
    return arguments_[position_++];
  }

  static bool readText(const std::optional<std::string>& value, std::string& text) {
    if (value) text = *value;
    return value.has_value();
  }

  bool readWidth(const std::optional<std::string>& value) {
    if (!value || value->empty()) return false;
    const char* end = value->data() + value->size();
    return std::from_chars(value->data(), end, request_.style.width).ptr == end;
  }

  const ToolArguments& arguments_;
  size_t position_ = 0;
  ListingRequest request_;
};

void findRoots(const RegistryTreeEntry& entry, const ListingRequest& request, Roots& found) {
  const bool matches = (request.name.empty() || entry.name == request.name) &&
                       (request.className.empty() || entry.className == request.className);
  if (matches) {
    found.push_back(&entry);
    return;
  }
  for (const auto& child : entry.children) findRoots(*child, request, found);
}

PropertyList nodeOf(const PropertyValue& value) {
  if (const auto* bytes = value.data()) {
    return PropertyList(
        plist_new_data(reinterpret_cast<const char*>(bytes->data()), bytes->size()));
  }
  if (const auto* number = value.number()) {
    return PropertyList(plist_new_uint(static_cast<uint64_t>(*number)));
  }
  if (const auto* truth = value.boolean()) return PropertyList(plist_new_bool(*truth ? 1 : 0));
  if (const auto* items = value.array()) {
    PropertyList array(plist_new_array());
    for (const PropertyValue& item : *items) addItem(array, nodeOf(item));
    return array;
  }
  if (const auto* entries = value.dictionary()) {
    PropertyList dictionary(plist_new_dict());
    for (const auto& [key, item] : *entries) addItem(dictionary, key.c_str(), nodeOf(item));
    return dictionary;
  }
  return PropertyList(plist_new_string(value.text() ? value.text()->c_str() : ""));
}

PropertyList entryNode(const RegistryTreeEntry& entry) {
  PropertyList node = nodeOf(entry.properties);
  addItem(node, "IORegistryEntryName", nodeOf(entry.name));
  if (!entry.location.empty()) addItem(node, "IORegistryEntryLocation", nodeOf(entry.location));
  addItem(node, "IORegistryEntryID", nodeOf(static_cast<int64_t>(entry.id)));
  addItem(node, "IOObjectClass", nodeOf(entry.className));
  if (entry.children.empty()) return node;
  PropertyList children(plist_new_array());
  for (const auto& child : entry.children) addItem(children, entryNode(*child));
  addItem(node, "IORegistryEntryChildren", std::move(children));
  return node;
}

std::string propertyListText(const Roots& roots, bool subtrees) {
  if (!subtrees) return xmlText(entryNode(*roots.front()));
  if (roots.empty()) return {};
  PropertyList list(plist_new_array());
  for (const RegistryTreeEntry* root : roots) addItem(list, entryNode(*root));
  return xmlText(list);
}

}  // namespace

ToolAnswer registryListing(const BenchFile& bench, const ToolArguments& arguments) {
  const std::optional<ListingRequest> request = ArgumentReader(arguments).read();
  if (!request) return refusal(usage);
  const auto tree = buildRegistryTree(readBench(bench));
  Roots roots;
  if (request->subtrees) {
    findRoots(*tree, *request, roots);
  } else {
    roots.push_back(tree.get());
  }
  return {.output = request->asPropertyList ? propertyListText(roots, request->subtrees)
                                            : registryText(roots, request->style)};
}

}  // namespace corvane
