#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>

namespace corvane {

/// The first place where a document does not fit its schema.
struct SchemaBreach {
  std::string pointer;  ///< of the value concerned, as a JSON pointer
  std::string reason;   ///< for a person, without full stop
};

/// Checks `document` against a JSON Schema of draft 7, of which it understands: type, enum,
/// required, properties, additionalProperties as a boolean, items as one schema, minItems,
/// maxItems, minLength, maxLength, pattern, minimum, maximum, if with then and else, and $ref to
/// "#/definitions/...". Annotations are passed over. A text that is longer than its maxLength is
/// never matched against its pattern.
std::optional<SchemaBreach> findSchemaBreach(const nlohmann::ordered_json& schema,
                                             const nlohmann::ordered_json& document);

}  // namespace corvane
