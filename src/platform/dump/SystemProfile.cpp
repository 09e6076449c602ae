#include "platform/dump/SystemProfile.h"

#include <plist/plist.h>

#include <algorithm>
#include <cctype>

#include "platform/dump/PropertyListNode.h"

namespace corvane {

namespace {

/// The first word that begins with a digit: the texts read "macOS 12.6.1 (21G217)".
std::string versionWithin(const std::string& text) {
  const auto isDigit = [](unsigned char character) { return std::isdigit(character) != 0; };
  const auto begin = std::find_if(text.begin(), text.end(), isDigit);
  return std::string(begin, std::find(begin, text.end(), ' '));
}

void readSoftware(plist_t item, SystemProfile& profile) {
  const std::string version = versionWithin(propertyListText(item, "os_version"));
  if (!version.empty()) profile.productVersion = version;
}

void readExtension(plist_t item, SystemProfile& profile) {
  const std::string identifier = propertyListText(item, "spext_bundleid");
  std::string version = propertyListText(item, "spext_version");
  if (version.empty()) version = propertyListText(item, "version");
  if (!identifier.empty() && !version.empty()) profile.driverVersions[identifier] = version;
}

template <typename Read>
void forEachDictionary(plist_t list, const Read& read) {
  if (!list || plist_get_node_type(list) != PLIST_ARRAY) return;
  for (uint32_t index = 0; index < plist_array_get_size(list); ++index) {
    plist_t item = plist_array_get_item(list, index);
    if (plist_get_node_type(item) == PLIST_DICT) read(item);
  }
}

}  // namespace

SystemProfile readSystemProfile(std::string_view bytes) {
  SystemProfile profile;
  const std::optional<PropertyListTree> tree = parseXmlPropertyList(bytes);
  if (!tree) return profile;
  forEachDictionary(tree->root(), [&](plist_t section) {
    const std::string type = propertyListText(section, "_dataType");
    plist_t items = plist_dict_get_item(section, "_items");
    if (type == "SPSoftwareDataType") {
      forEachDictionary(items, [&](plist_t item) { readSoftware(item, profile); });
    } else if (type == "SPExtensionsDataType") {
      forEachDictionary(items, [&](plist_t item) { readExtension(item, profile); });
    }
  });
  return profile;
}

}  // namespace corvane
