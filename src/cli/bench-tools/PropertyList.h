#pragma once

#include <plist/plist.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

namespace corvane {

/// A node of libplist that is freed with its children.
struct PropertyListDeleter {
  void operator()(void* node) const { plist_free(static_cast<plist_t>(node)); }
};
using PropertyList = std::unique_ptr<void, PropertyListDeleter>;

/// A dictionary of texts.
PropertyList textDictionary(std::initializer_list<std::pair<const char*, std::string>> texts);

/// Puts `value` into a dictionary or at the end of an array, which owns it from then on.
void addItem(const PropertyList& dictionary, const char* key, PropertyList value);
void addItem(const PropertyList& array, PropertyList value);

/// The XML form.
std::string xmlText(const PropertyList& root);

}  // namespace corvane
