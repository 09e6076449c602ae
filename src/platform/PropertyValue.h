#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace corvane {

/// The text form of a byte string: "<", the bytes as lower-case hexadecimal with a blank after
/// every fourth byte, ">". Eight bytes print as <2000001b 32a0b1c2>, none as <>.
std::string dataText(std::span<const uint8_t> bytes);

/// A value of the device registry or of a property list: nothing, data, text, number, boolean,
/// array or dictionary. A plain value type; copying copies the whole tree.
class PropertyValue {
 public:
  using Data = std::vector<uint8_t>;
  using Array = std::vector<PropertyValue>;
  using Dictionary = std::map<std::string, PropertyValue, std::less<>>;

  PropertyValue() = default;
  PropertyValue(Data value);              // NOLINT(google-explicit-constructor)
  PropertyValue(std::string value);       // NOLINT(google-explicit-constructor)
  PropertyValue(std::string_view value);  // NOLINT(google-explicit-constructor)
  PropertyValue(const char* value);       // NOLINT(google-explicit-constructor)
  PropertyValue(int64_t value);           // NOLINT(google-explicit-constructor)
  PropertyValue(int value);               // NOLINT(google-explicit-constructor)
  PropertyValue(bool value);              // NOLINT(google-explicit-constructor)
  PropertyValue(Array value);             // NOLINT(google-explicit-constructor)
  PropertyValue(Dictionary value);        // NOLINT(google-explicit-constructor)

  bool isNull() const;

  /// Each returns the value when it is of that kind, else null. Valid as long as the value lives.
  const Data* data() const;
  const std::string* text() const;
  const int64_t* number() const;
  const bool* boolean() const;
  const Array* array() const;
  const Dictionary* dictionary() const;

  /// The entry under `key` when this is a dictionary that has it, else null.
  const PropertyValue* find(std::string_view key) const;

  /// How the value prints inside a text: data in its data text form, text as it stands, numbers in
  /// decimal, booleans as 1 or 0, nothing as "(null)", collections as one line in brackets.
  std::string description() const;

  bool operator==(const PropertyValue& other) const = default;

 private:
  std::variant<std::monostate, Data, std::string, int64_t, bool, Array, Dictionary> value_;
};

/// The entry under `key`, or null when there is none.
const PropertyValue* findProperty(const PropertyValue::Dictionary& dictionary,
                                  std::string_view key);

/// How an entry prints inside a text; "(null)" when it is absent.
std::string propertyText(const PropertyValue::Dictionary& dictionary, std::string_view key);

/// How an unset text prints inside another: "(null)".
std::string textOrNull(const std::optional<std::string>& text);

}  // namespace corvane
