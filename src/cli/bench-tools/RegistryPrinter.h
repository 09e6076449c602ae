#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/bench/tree/RegistryTree.h"

namespace corvane {

/// How the registry is printed as a text.
struct RegistryPrintStyle {
  bool properties = false;   ///< under each entry its properties
  bool hexadecimal = false;  ///< numbers in hexadecimal, and data never as text
  size_t width = 0;          ///< longer lines are cut and end with "$"; 0 for no bound
};

/// The trees as the Mac's own tool prints them: for each entry a line with its name, location and
/// class, under it the properties in braces, and bars that lead to siblings and children. Several
/// trees are separated by empty lines.
///
/// Data of two bytes and more that can be printed is shown as texts, split at its zero bytes; zero
/// bytes at its end leave no trace. Texts are not escaped.
std::string registryText(const std::vector<const RegistryTreeEntry*>& roots,
                         const RegistryPrintStyle& style);

/// A value as it stands behind the equals sign.
std::string printedValue(const PropertyValue& value, bool hexadecimal);

}  // namespace corvane
