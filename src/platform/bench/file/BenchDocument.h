#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

#include "platform/bench/file/BenchState.h"

namespace corvane {

/// The JSON document of a bench file: keys in the order of the file.
using BenchDocument = nlohmann::ordered_json;

/// Parses and checks a bench file's text against the schema and against itself. `path` is what
/// errors name. Throws BenchFileError.
BenchDocument parseBenchDocument(std::string_view text, const std::string& path);

/// The values of a document that fits.
BenchState benchStateOf(const BenchDocument& document);

/// The document of a state, every key written out.
BenchDocument benchDocumentOf(const BenchState& state);

/// The text that stands in a file.
std::string benchDocumentText(const BenchDocument& document);

}  // namespace corvane
