#pragma once

#include <string>
#include <vector>

#include "OnlineUpdate/UpdateCatalogue.h"

namespace corvane {

/// An XML property list around its one element.
inline std::string propertyListXml(const std::string& element) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" + element +
         "</plist>\n";
}

inline std::string escapedXml(const std::string& text) {
  std::string escaped;
  for (const char character : text) {
    if (character == '&') {
      escaped += "&amp;";
    } else if (character == '<') {
      escaped += "&lt;";
    } else {
      escaped += character;
    }
  }
  return escaped;
}

/// A catalogue with those packages, as XML.
inline std::string catalogueXml(const std::vector<UpdateRule>& rules) {
  std::string members;
  for (const UpdateRule& rule : rules) {
    const auto entry = [](const std::string& key, const std::string& value) {
      return "<key>" + key + "</key><string>" + escapedXml(value) + "</string>";
    };
    members += "<dict>" + entry("ProductID", rule.ProductID) + entry("Version", rule.Version) +
               entry("FileName", rule.FileName) + entry("Size", rule.Size) +
               entry("Info", rule.Info) + "</dict>";
  }
  return propertyListXml("<dict><key>Rules</key><array>" + members + "</array></dict>");
}

}  // namespace corvane
