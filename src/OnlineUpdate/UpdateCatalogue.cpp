#include "OnlineUpdate/UpdateCatalogue.h"

#include <plist/plist.h>

#include <algorithm>
#include <memory>
#include <type_traits>

#include "OnlineUpdate/PropertyListBounds.h"

namespace corvane {

namespace {

struct PropertyListDeleter {
  void operator()(void* list) const { plist_free(list); }
};
using PropertyList = std::unique_ptr<std::remove_pointer_t<plist_t>, PropertyListDeleter>;

PropertyList parse(std::span<const uint8_t> bytes) {
  const auto* text = reinterpret_cast<const char*>(bytes.data());
  const auto size = static_cast<uint32_t>(bytes.size());
  plist_t list = nullptr;
  if (isBinaryPropertyList(bytes)) {
    plist_from_bin(text, size, &list);
  } else {
    plist_from_xml(text, size, &list);
  }
  return PropertyList(list);
}

/// The entry of a dictionary when it is of that type, else null.
plist_t entryOfType(plist_t dictionary, const char* key, plist_type type) {
  plist_t entry = plist_dict_get_item(dictionary, key);
  return entry != nullptr && plist_get_node_type(entry) == type ? entry : nullptr;
}

std::string textEntry(plist_t dictionary, const char* key) {
  plist_t entry = entryOfType(dictionary, key, PLIST_STRING);
  if (entry == nullptr) return {};
  uint64_t length = 0;
  const char* const text = plist_get_string_ptr(entry, &length);
  return text == nullptr ? std::string() : std::string(text, length);
}

UpdateRule ruleFrom(plist_t dictionary) {
  return {textEntry(dictionary, "ProductID"), textEntry(dictionary, "Version"),
          textEntry(dictionary, "FileName"), textEntry(dictionary, "Size"),
          textEntry(dictionary, "Info")};
}

std::vector<UpdateRule> rulesFrom(plist_t array) {
  std::vector<UpdateRule> rules;
  for (uint32_t index = 0; index < plist_array_get_size(array); ++index) {
    plist_t member = plist_array_get_item(array, index);
    if (plist_get_node_type(member) == PLIST_DICT) rules.push_back(ruleFrom(member));
  }
  return rules;
}

}  // namespace

CatalogueReading readCatalogue(std::span<const uint8_t> bytes) {
  if (bytes.size() > catalogueSizeLimit) return {std::nullopt, "the catalogue is too large"};
  if (!isWithinPropertyListBounds(bytes)) {
    return {std::nullopt, "the catalogue is no property list that can be read"};
  }
  const PropertyList list = parse(bytes);
  if (!list || plist_get_node_type(list.get()) != PLIST_DICT) {
    return {std::nullopt, "the catalogue is no property list"};
  }
  plist_t rules = entryOfType(list.get(), "Rules", PLIST_ARRAY);
  if (rules == nullptr) return {std::nullopt, "the catalogue has no \"Rules\""};
  return {rulesFrom(rules), ""};
}

const UpdateRule* findRule(const std::vector<UpdateRule>& rules, std::string_view productID) {
  const auto found = std::find_if(rules.rbegin(), rules.rend(), [productID](const auto& rule) {
    return rule.ProductID == productID;
  });
  return found == rules.rend() ? nullptr : &*found;
}

}  // namespace corvane
