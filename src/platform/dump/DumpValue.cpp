#include "platform/dump/DumpValue.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <utility>

namespace corvane {

namespace {

/// Deeper nesting than any registry holds; bounds the recursion.
constexpr int mostNesting = 64;

/// What a value stands in; says where a text inside may end.
enum class Within { Nothing, List, Dictionary };

bool isHexadecimal(char character) {
  return (character >= '0' && character <= '9') || (character >= 'a' && character <= 'f') ||
         (character >= 'A' && character <= 'F');
}

uint8_t nibble(char character) {
  if (character <= '9') return static_cast<uint8_t>(character - '0');
  return static_cast<uint8_t>((character | 0x20) - 'a' + 10);
}

bool beginsValue(char character) {
  constexpr std::string_view marks = "\"<{([YN0123456789";
  return marks.find(character) != std::string_view::npos;
}

class ValueReader {
 public:
  ValueReader(std::string_view text, bool cut, DumpProblems& problems)
      : text_(text), cut_(cut), problems_(problems) {}

  std::optional<PropertyValue> readWhole() {
    std::optional<PropertyValue> value = readValue(Within::Nothing, 0);
    if (value && position_ != text_.size()) return std::nullopt;
    return value;
  }

 private:
  bool atEnd() const { return position_ >= text_.size(); }
  char current() const { return atEnd() ? '\0' : text_[position_]; }

  std::optional<PropertyValue> readValue(Within within, int nesting) {
    switch (current()) {
      case '"':
        return readText(within);
      case '<':
        return readData(within);
      case '{':
        return readDictionary(nesting);
      case '(':
        return readList(')', nesting);
      case '[':
        return readList(']', nesting);
      case 'Y':
        return readWord("Yes", true);
      case 'N':
        return readWord("No", false);
      default:
        return readNumber(within);
    }
  }

  std::optional<PropertyValue> readWord(std::string_view word, bool value) {
    if (text_.substr(position_, word.size()) != word) return std::nullopt;
    position_ += word.size();
    return PropertyValue(value);
  }

  /// Numbers are unsigned; those that were negative come as their 64-bit complement.
  std::optional<PropertyValue> readNumber(Within within) {
    const bool hexadecimal = text_.substr(position_, 2) == "0x";
    const char* first = text_.data() + position_ + (hexadecimal ? 2 : 0);
    uint64_t number = 0;
    const auto [end, error] =
        std::from_chars(first, text_.data() + text_.size(), number, hexadecimal ? 16 : 10);
    if (error != std::errc()) return std::nullopt;
    position_ = static_cast<size_t>(end - text_.data());
    const bool digitsMayBeMissing = within != Within::Nothing && atEnd();
    if (digitsMayBeMissing) return std::nullopt;
    return PropertyValue(static_cast<int64_t>(number));
  }

  /// Whether a value may end before `position`, by what stands there.
  bool endsBefore(size_t position, Within within) const {
    if (within == Within::Nothing) return position == text_.size();
    if (position >= text_.size()) return false;
    const char next = text_[position];
    if (next == '}' || next == ')' || next == ']') return true;
    if (next != ',' || position + 1 >= text_.size()) return false;
    const char following = text_[position + 1];
    return within == Within::Dictionary ? following == '"' : beginsValue(following);
  }

  /// The first place at or after `from` where `mark` stands and a value may end behind it.
  size_t findEnd(std::string_view mark, size_t from, Within within) {
    if (within == Within::Nothing) {
      const bool ends = text_.size() >= from + mark.size() && text_.ends_with(mark);
      return ends ? text_.size() - mark.size() : std::string_view::npos;
    }
    size_t& fruitless = fruitlessFrom_[mark.size()][within == Within::Dictionary];
    if (from >= fruitless) return std::string_view::npos;
    size_t place = text_.find(mark, from);
    while (place != std::string_view::npos && !endsBefore(place + mark.size(), within)) {
      place = text_.find(mark, place + 1);
    }
    if (place == std::string_view::npos) fruitless = from;
    return place;
  }

  std::optional<PropertyValue> readText(Within within) {
    const size_t begin = position_ + 1;
    const size_t end = findEnd("\"", begin, within);
    if (end == std::string_view::npos) return std::nullopt;
    position_ = end + 1;
    return PropertyValue(text_.substr(begin, end - begin));
  }

  std::optional<PropertyValue> readData(Within within) {
    ++position_;
    if (current() == '"') return readDataText(within);
    const size_t end =
        position_ < noAngleFrom_ ? text_.find('>', position_) : std::string_view::npos;
    if (end == std::string_view::npos) {
      noAngleFrom_ = std::min(noAngleFrom_, position_);
      return within == Within::Dictionary ? readCutData() : std::nullopt;
    }
    const std::string_view digits = text_.substr(position_, end - position_);
    position_ = end + 1;
    return digits.find('*') == std::string_view::npos ? readBytes(digits) : readRedacted(digits);
  }

  std::optional<PropertyValue> readDataText(Within within) {
    constexpr std::string_view separator = "\",\"";
    const size_t begin = position_ + 1;
    const size_t end = findEnd("\">", begin, within);
    if (end == std::string_view::npos) return std::nullopt;
    position_ = end + 2;
    PropertyValue::Data bytes;
    bytes.reserve(end - begin);
    for (size_t index = begin; index < end; ++index) {
      const bool separates =
          index + separator.size() <= end && text_.substr(index, separator.size()) == separator;
      bytes.push_back(separates ? uint8_t{0} : static_cast<uint8_t>(text_[index]));
      if (separates) index += separator.size() - 1;
    }
    return PropertyValue(std::move(bytes));
  }

  static std::optional<PropertyValue> readBytes(std::string_view digits) {
    if (digits.size() % 2 != 0) return std::nullopt;
    PropertyValue::Data bytes(digits.size() / 2);
    for (size_t index = 0; index < bytes.size(); ++index) {
      const char high = digits[2 * index];
      const char low = digits[2 * index + 1];
      if (!isHexadecimal(high) || !isHexadecimal(low)) return std::nullopt;
      bytes[index] = static_cast<uint8_t>(nibble(high) << 4 | nibble(low));
    }
    return PropertyValue(std::move(bytes));
  }

  std::optional<PropertyValue> readRedacted(std::string_view digits) {
    std::optional<PropertyValue> shown = partlyKnown(digits);
    if (shown) ++problems_.redactedValues;
    return shown;
  }

  /// The digits before the cut, and an asterisk for the others. Of none nothing is known.
  std::optional<PropertyValue> readCutData() {
    const std::string_view digits = text_.substr(position_);
    if (!cut_ || digits.empty()) return std::nullopt;
    std::optional<PropertyValue> shown = partlyKnown(std::string(digits) + "*");
    if (shown) position_ = text_.size();
    return shown;
  }

  /// Data of which some digits are asterisks, in the data's text form.
  static std::optional<PropertyValue> partlyKnown(std::string_view digits) {
    constexpr size_t digitsPerGroup = 8;
    std::string shown = "<";
    for (size_t index = 0; index < digits.size(); ++index) {
      if (digits[index] != '*' && !isHexadecimal(digits[index])) return std::nullopt;
      if (index > 0 && index % digitsPerGroup == 0) shown += ' ';
      shown += digits[index];
    }
    return PropertyValue(shown + ">");
  }

  std::optional<PropertyValue> readList(char closing, int nesting) {
    ++position_;
    PropertyValue::Array items;
    if (nesting >= mostNesting) return std::nullopt;
    while (!atEnd() && current() != closing) {
      std::optional<PropertyValue> item = readValue(Within::List, nesting + 1);
      if (!item) return spoilt(PropertyValue(std::move(items)));
      items.push_back(std::move(*item));
      if (current() == ',') ++position_;
    }
    if (!close(closing)) return spoilt(PropertyValue(std::move(items)));
    return PropertyValue(std::move(items));
  }

  std::optional<PropertyValue> readDictionary(int nesting) {
    ++position_;
    PropertyValue::Dictionary entries;
    if (nesting >= mostNesting) return std::nullopt;
    while (!atEnd() && current() != '}') {
      if (!readMember(entries, nesting)) return spoilt(PropertyValue(std::move(entries)));
      if (current() == ',') ++position_;
    }
    if (!close('}')) return spoilt(PropertyValue(std::move(entries)));
    return PropertyValue(std::move(entries));
  }

  bool readMember(PropertyValue::Dictionary& entries, int nesting) {
    if (current() != '"') return false;
    const size_t begin = position_ + 1;
    const size_t end = text_.find("\"=", begin);
    if (end == std::string_view::npos) return false;
    position_ = end + 2;
    std::optional<PropertyValue> value = readValue(Within::Dictionary, nesting + 1);
    if (!value) return skipMember();
    entries.insert_or_assign(std::string(text_.substr(begin, end - begin)), std::move(*value));
    return true;
  }

  /// Passes over a member that cannot be read, to the next one of which the key can be seen.
  bool skipMember() {
    ++problems_.unreadableValues;
    const size_t next = text_.find(",\"", position_);
    if (next == std::string_view::npos) return false;
    position_ = next;
    return true;
  }

  bool close(char closing) {
    if (current() != closing) return false;
    ++position_;
    return true;
  }

  /// Where a collection breaks off, so does everything around it.
  PropertyValue spoilt(PropertyValue collection) {
    if (!spoilt_) ++problems_.unreadableValues;
    spoilt_ = true;
    position_ = text_.size();
    return collection;
  }

  std::string_view text_;
  bool cut_;
  DumpProblems& problems_;
  size_t position_ = 0;
  bool spoilt_ = false;

  // From where on a search is known to find nothing, by the mark's length and what it stands in:
  // a long spoilt line is not searched to its end again and again.
  static constexpr size_t everywhere = std::string_view::npos;
  size_t fruitlessFrom_[3][2] = {
      {everywhere, everywhere}, {everywhere, everywhere}, {everywhere, everywhere}};
  size_t noAngleFrom_ = everywhere;
};

}  // namespace

std::optional<PropertyValue> readDumpValue(std::string_view text, DumpProblems& problems) {
  const bool cut = text.ends_with('$');
  if (cut) text.remove_suffix(1);
  DumpProblems found;
  std::optional<PropertyValue> value = ValueReader(text, cut, found).readWhole();
  const bool collection = value && (value->array() || value->dictionary());
  if (cut && !collection) value.reset();
  if (cut) {
    found.unreadableValues = 0;
    ++found.cutLines;
  } else if (!value) {
    found = DumpProblems{};
    ++found.unreadableValues;
  }
  problems += found;
  return value;
}

}  // namespace corvane
