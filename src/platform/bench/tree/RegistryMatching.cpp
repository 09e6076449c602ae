#include "platform/bench/tree/RegistryMatching.h"

#include <algorithm>

namespace corvane {

namespace {

bool holds(const PropertyValue::Dictionary& properties, const PropertyValue::Dictionary& wanted);

bool fits(const PropertyValue& value, const PropertyValue& wanted) {
  const bool areDictionaries = value.dictionary() != nullptr && wanted.dictionary() != nullptr;
  return areDictionaries ? holds(*value.dictionary(), *wanted.dictionary()) : value == wanted;
}

bool holds(const PropertyValue::Dictionary& properties, const PropertyValue::Dictionary& wanted) {
  return std::all_of(wanted.begin(), wanted.end(), [&](const auto& pair) {
    const PropertyValue* value = findProperty(properties, pair.first);
    return value != nullptr && fits(*value, pair.second);
  });
}

void append(const RegistryTreeEntry& entry, std::vector<const RegistryTreeEntry*>& entries) {
  entries.push_back(&entry);
  for (const auto& child : entry.children) append(*child, entries);
}

}  // namespace

bool matchesProperties(const PropertyValue::Dictionary& matching,
                       const PropertyValue::Dictionary& properties) {
  constexpr std::string_view propertyMatch = "IOPropertyMatch";
  return !matching.empty() && std::all_of(matching.begin(), matching.end(), [&](const auto& pair) {
    if (pair.first != propertyMatch) {
      const PropertyValue* value = findProperty(properties, pair.first);
      return value != nullptr && fits(*value, pair.second);
    }
    return pair.second.dictionary() != nullptr && !pair.second.dictionary()->empty() &&
           holds(properties, *pair.second.dictionary());
  });
}

std::vector<const RegistryTreeEntry*> inTreeOrder(const RegistryTreeEntry& entry) {
  std::vector<const RegistryTreeEntry*> entries;
  append(entry, entries);
  return entries;
}

}  // namespace corvane
