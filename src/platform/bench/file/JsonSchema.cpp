#include "platform/bench/file/JsonSchema.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <regex>

namespace corvane {

namespace {

using Json = nlohmann::ordered_json;
using Breach = std::optional<SchemaBreach>;

constexpr size_t shownCharacters = 60;

/// A collection is named rather than printed: printing follows its nesting, which nothing bounds.
std::string shown(const Json& value) {
  if (value.is_array()) return "a list";
  if (value.is_object()) return "an object";
  std::string text = value.dump(-1, ' ', true, Json::error_handler_t::replace);
  if (text.size() > shownCharacters) text = text.substr(0, shownCharacters) + "...";
  return text;
}

std::string escapedToken(const std::string& key) {
  std::string token;
  for (const char character : key) {
    if (character == '~') {
      token += "~0";
    } else if (character == '/') {
      token += "~1";
    } else {
      token += character;
    }
  }
  return token;
}

bool hasType(const Json& value, const std::string& type) {
  if (type == "object") return value.is_object();
  if (type == "array") return value.is_array();
  if (type == "string") return value.is_string();
  if (type == "boolean") return value.is_boolean();
  if (type == "integer") return value.is_number_integer();
  if (type == "number") return value.is_number();
  return type == "null" && value.is_null();
}

/// Characters, not bytes: a length counts what a person sees.
size_t characterCount(const std::string& text) {
  return static_cast<size_t>(std::count_if(text.begin(), text.end(), [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
  }));
}

/// Compiling a pattern costs far more than matching it.
const std::regex& compiledPattern(const std::string& pattern) {
  thread_local std::map<std::string, std::regex> compiled;
  const auto found = compiled.find(pattern);
  if (found != compiled.end()) return found->second;
  return compiled.emplace(pattern, std::regex(pattern, std::regex::ECMAScript)).first->second;
}

class SchemaCheck {
 public:
  explicit SchemaCheck(const Json& root) : root_(root) {}

  Breach check(const Json& schema, const Json& value, const std::string& pointer) const {
    if (const auto reference = schema.find("$ref"); reference != schema.end()) {
      if (Breach breach = check(referenced(*reference), value, pointer)) return breach;
    }
    if (Breach breach = checkType(schema, value, pointer)) return breach;
    if (Breach breach = checkEnumeration(schema, value, pointer)) return breach;
    if (value.is_string()) return checkText(schema, value.get_ref<const std::string&>(), pointer);
    if (value.is_number()) return checkNumber(schema, value, pointer);
    if (value.is_array()) return checkArray(schema, value, pointer);
    if (value.is_object()) return checkObject(schema, value, pointer);
    return {};
  }

 private:
  const Json& referenced(const Json& reference) const {
    return root_.at(Json::json_pointer(reference.get<std::string>().substr(1)));
  }

  static Breach checkType(const Json& schema, const Json& value, const std::string& pointer) {
    const auto type = schema.find("type");
    if (type == schema.end() || hasType(value, type->get<std::string>())) return {};
    return SchemaBreach{pointer, fmt::format("must be of type {}, but is {}",
                                             type->get<std::string>(), shown(value))};
  }

  static Breach checkEnumeration(const Json& schema, const Json& value,
                                 const std::string& pointer) {
    const auto choices = schema.find("enum");
    if (choices == schema.end()) return {};
    if (std::find(choices->begin(), choices->end(), value) != choices->end()) return {};
    std::string list;
    for (const Json& choice : *choices) list += (list.empty() ? "" : ", ") + choice.dump();
    return SchemaBreach{pointer, fmt::format("must be one of {}, but is {}", list, shown(value))};
  }

  static Breach checkText(const Json& schema, const std::string& text, const std::string& pointer) {
    const size_t length = characterCount(text);
    if (length < schema.value("minLength", size_t{0})) {
      return SchemaBreach{pointer, fmt::format("must have at least {} characters",
                                               schema.at("minLength").get<size_t>())};
    }
    if (length > schema.value("maxLength", text.size())) {
      return SchemaBreach{pointer, fmt::format("must have at most {} characters, but has {}",
                                               schema.at("maxLength").get<size_t>(), length)};
    }
    const auto pattern = schema.find("pattern");
    if (pattern == schema.end()) return {};
    if (std::regex_search(text, compiledPattern(pattern->get<std::string>()))) return {};
    return SchemaBreach{pointer, fmt::format("must match {}, but is {}",
                                             pattern->get<std::string>(), shown(Json(text)))};
  }

  static Breach checkNumber(const Json& schema, const Json& value, const std::string& pointer) {
    const auto minimum = schema.find("minimum");
    if (minimum != schema.end() && value < *minimum) {
      return SchemaBreach{
          pointer, fmt::format("must be at least {}, but is {}", minimum->dump(), shown(value))};
    }
    const auto maximum = schema.find("maximum");
    if (maximum != schema.end() && value > *maximum) {
      return SchemaBreach{
          pointer, fmt::format("must be at most {}, but is {}", maximum->dump(), shown(value))};
    }
    return {};
  }

  Breach checkArray(const Json& schema, const Json& value, const std::string& pointer) const {
    if (value.size() < schema.value("minItems", size_t{0})) {
      return SchemaBreach{
          pointer, fmt::format("must have at least {} items", schema.at("minItems").get<size_t>())};
    }
    if (value.size() > schema.value("maxItems", value.size())) {
      return SchemaBreach{pointer, fmt::format("must have at most {} items, but has {}",
                                               schema.at("maxItems").get<size_t>(), value.size())};
    }
    const auto items = schema.find("items");
    if (items == schema.end()) return {};
    for (size_t index = 0; index < value.size(); ++index) {
      if (Breach breach = check(*items, value[index], fmt::format("{}/{}", pointer, index))) {
        return breach;
      }
    }
    return {};
  }

  Breach checkObject(const Json& schema, const Json& value, const std::string& pointer) const {
    if (Breach breach = checkRequired(schema, value, pointer)) return breach;
    if (Breach breach = checkProperties(schema, value, pointer)) return breach;
    const auto condition = schema.find("if");
    if (condition == schema.end()) return {};
    const auto branch = schema.find(check(*condition, value, pointer) ? "else" : "then");
    return branch == schema.end() ? Breach{} : check(*branch, value, pointer);
  }

  static Breach checkRequired(const Json& schema, const Json& value, const std::string& pointer) {
    const auto required = schema.find("required");
    if (required == schema.end()) return {};
    for (const Json& name : *required) {
      if (!value.contains(name.get<std::string>())) {
        return SchemaBreach{pointer, fmt::format("lacks the field {}", name.dump())};
      }
    }
    return {};
  }

  Breach checkProperties(const Json& schema, const Json& value, const std::string& pointer) const {
    static const Json none = Json::object();
    const auto properties = schema.find("properties");
    const Json& known = properties == schema.end() ? none : *properties;
    const bool closed = !schema.value("additionalProperties", true);
    for (const auto& [key, member] : value.items()) {
      const std::string memberPointer = pointer + "/" + escapedToken(key);
      const auto found = known.find(key);
      if (found == known.end()) {
        if (closed) return SchemaBreach{memberPointer, "is no field of a bench"};
      } else if (Breach breach = check(*found, member, memberPointer)) {
        return breach;
      }
    }
    return {};
  }

  const Json& root_;
};

}  // namespace

std::optional<SchemaBreach> findSchemaBreach(const nlohmann::ordered_json& schema,
                                             const nlohmann::ordered_json& document) {
  return SchemaCheck(schema).check(schema, document, "");
}

}  // namespace corvane
