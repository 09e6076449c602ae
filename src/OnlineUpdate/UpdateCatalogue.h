#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// The most bytes a catalogue may have.
inline constexpr uint64_t catalogueSizeLimit = 1 << 20;

/// A package of the catalogue. A field that the catalogue lacks, or that is no text there, is
/// empty.
struct UpdateRule {
  std::string ProductID;
  std::string Version;
  std::string FileName;
  std::string Size;
  std::string Info;

  bool operator==(const UpdateRule&) const = default;
};

/// The catalogue's packages, or why there are none.
struct CatalogueReading {
  std::optional<std::vector<UpdateRule>> rules;
  std::string problem;  ///< one sentence without its subject; empty with the rules
};

/// Reads a catalogue: a property list, XML or binary, with an array "Rules" of dictionaries.
/// Members of "Rules" that are no dictionaries are passed over. Any bytes may be given.
CatalogueReading readCatalogue(std::span<const uint8_t> bytes);

/// The last rule for that product, or null.
const UpdateRule* findRule(const std::vector<UpdateRule>& rules, std::string_view productID);

}  // namespace corvane
