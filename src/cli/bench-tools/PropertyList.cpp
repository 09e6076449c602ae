#include "cli/bench-tools/PropertyList.h"

#include <cstdint>
#include <cstdlib>

namespace corvane {

PropertyList textDictionary(std::initializer_list<std::pair<const char*, std::string>> texts) {
  PropertyList dictionary(plist_new_dict());
  for (const auto& [key, text] : texts) {
    addItem(dictionary, key, PropertyList(plist_new_string(text.c_str())));
  }
  return dictionary;
}

void addItem(const PropertyList& dictionary, const char* key, PropertyList value) {
  plist_dict_set_item(dictionary.get(), key, value.release());
}

void addItem(const PropertyList& array, PropertyList value) {
  plist_array_append_item(array.get(), value.release());
}

std::string xmlText(const PropertyList& root) {
  char* xml = nullptr;
  uint32_t length = 0;
  plist_to_xml(root.get(), &xml, &length);
  std::string text(xml ? xml : "", length);
  std::free(xml);
  return text;
}

}  // namespace corvane
