#pragma once

#include <plist/plist.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/PropertyValue.h"
#include "platform/dump/DumpProblems.h"

namespace corvane {

/// Owns the tree of a property list as libplist holds it.
class PropertyListTree {
 public:
  explicit PropertyListTree(plist_t root) : root_(root) {}
  PropertyListTree(PropertyListTree&& other) noexcept;
  PropertyListTree(const PropertyListTree&) = delete;
  PropertyListTree& operator=(const PropertyListTree&) = delete;
  ~PropertyListTree() { plist_free(root_); }

  plist_t root() const { return root_; }

 private:
  plist_t root_;
};

/// Reads the XML form. Nothing for bytes that are not well formed and for nesting deeper than any
/// property list of a registry or of a system profile.
std::optional<PropertyListTree> parseXmlPropertyList(std::string_view bytes);

/// A node's value. Nothing, counted in `problems`, for kinds that a registry does not know.
std::optional<PropertyValue> propertyListValue(plist_t node, DumpProblems& problems);

/// Calls `take` with each member of a dictionary, in its order.
void forEachPropertyListMember(plist_t dictionary,
                               const std::function<void(const char* key, plist_t value)>& take);

/// The text of a dictionary's member; empty when there is none or it is no text.
std::string propertyListText(plist_t dictionary, const char* key);

}  // namespace corvane
