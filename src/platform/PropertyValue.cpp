#include "platform/PropertyValue.h"

#include <algorithm>

#include "text/Hexadecimal.h"

namespace corvane {

namespace {

constexpr size_t bytesPerGroup = 4;

template <typename Range, typename Print>
std::string joined(const Range& range, const Print& print) {
  std::string text;
  for (const auto& item : range) {
    if (!text.empty()) text += ", ";
    text += print(item);
  }
  return text;
}

}  // namespace

std::string dataText(std::span<const uint8_t> bytes) {
  std::string text = "<";
  for (size_t index = 0; index < bytes.size(); index += bytesPerGroup) {
    if (index > 0) text += ' ';
    text += lowerHexadecimal(bytes.subspan(index, std::min(bytesPerGroup, bytes.size() - index)));
  }
  text += '>';
  return text;
}

PropertyValue::PropertyValue(Data value) : value_(std::move(value)) {}
PropertyValue::PropertyValue(std::string value) : value_(std::move(value)) {}
PropertyValue::PropertyValue(std::string_view value) : value_(std::string(value)) {}
PropertyValue::PropertyValue(const char* value) : value_(std::string(value)) {}
PropertyValue::PropertyValue(int64_t value) : value_(value) {}
PropertyValue::PropertyValue(int value) : value_(int64_t{value}) {}
PropertyValue::PropertyValue(bool value) : value_(value) {}
PropertyValue::PropertyValue(Array value) : value_(std::move(value)) {}
PropertyValue::PropertyValue(Dictionary value) : value_(std::move(value)) {}

bool PropertyValue::isNull() const {
  return std::holds_alternative<std::monostate>(value_);
}
const PropertyValue::Data* PropertyValue::data() const {
  return std::get_if<Data>(&value_);
}
const std::string* PropertyValue::text() const {
  return std::get_if<std::string>(&value_);
}
const int64_t* PropertyValue::number() const {
  return std::get_if<int64_t>(&value_);
}
const bool* PropertyValue::boolean() const {
  return std::get_if<bool>(&value_);
}
const PropertyValue::Array* PropertyValue::array() const {
  return std::get_if<Array>(&value_);
}
const PropertyValue::Dictionary* PropertyValue::dictionary() const {
  return std::get_if<Dictionary>(&value_);
}

const PropertyValue* PropertyValue::find(std::string_view key) const {
  const Dictionary* entries = dictionary();
  return entries ? findProperty(*entries, key) : nullptr;
}

std::string PropertyValue::description() const {
  if (const Data* bytes = data()) return dataText(*bytes);
  if (const std::string* characters = text()) return *characters;
  if (const int64_t* integer = number()) return std::to_string(*integer);
  if (const bool* truth = boolean()) return *truth ? "1" : "0";
  if (const Array* items = array()) {
    return "(" + joined(*items, [](const PropertyValue& item) { return item.description(); }) + ")";
  }
  if (const Dictionary* entries = dictionary()) {
    return "{" +
           joined(
               *entries,
               [](const auto& entry) { return entry.first + " = " + entry.second.description(); }) +
           "}";
  }
  return "(null)";
}

const PropertyValue* findProperty(const PropertyValue::Dictionary& dictionary,
                                  std::string_view key) {
  const auto found = dictionary.find(key);
  return found == dictionary.end() ? nullptr : &found->second;
}

std::string propertyText(const PropertyValue::Dictionary& dictionary, std::string_view key) {
  const PropertyValue* value = findProperty(dictionary, key);
  return value ? value->description() : PropertyValue().description();
}

std::string textOrNull(const std::optional<std::string>& text) {
  return text.value_or(PropertyValue().description());
}

}  // namespace corvane
