#include "cli/bench-tools/RegistryPrinter.h"

#include <fmt/format.h>

#include <algorithm>

#include "text/Hexadecimal.h"

namespace corvane {

namespace {

constexpr const char* bar = "| ";
constexpr const char* gap = "  ";
constexpr const char* plainEntryClass = "IORegistryEntry";

bool isPrintable(uint8_t byte) {
  return byte >= 0x20 && byte < 0x7F;
}

/// Whether data is shown as texts: more than one byte, all printable or zero, and not led by a
/// zero byte.
bool showsAsText(const PropertyValue::Data& bytes) {
  return bytes.size() > 1 && isPrintable(bytes.front()) &&
         std::all_of(bytes.begin(), bytes.end(),
                     [](uint8_t byte) { return byte == 0 || isPrintable(byte); });
}

std::string dataAsText(const PropertyValue::Data& bytes) {
  std::string pieces(bytes.begin(), bytes.end());
  pieces.resize(pieces.find_last_not_of('\0') + 1);
  std::string text = "<\"";
  for (const char character : pieces) {
    if (character == '\0') {
      text += "\",\"";
    } else {
      text += character;
    }
  }
  return text + "\">";
}

std::string dataAsDigits(const PropertyValue::Data& bytes) {
  return "<" + lowerHexadecimal(bytes) + ">";
}

template <typename Range, typename Print>
std::string listed(const Range& range, const Print& print) {
  std::string text;
  for (const auto& item : range) {
    if (!text.empty()) text += ',';
    text += print(item);
  }
  return text;
}

class TextPrinter {
 public:
  explicit TextPrinter(const RegistryPrintStyle& style) : style_(style) {}

  void printTree(const RegistryTreeEntry& entry, const std::string& indent, bool isLast) {
    line(indent + "+-o " + entry.title() + header(entry));
    const std::string own = indent + (isLast ? gap : bar);
    if (style_.properties) printProperties(entry, own + (entry.children.empty() ? gap : bar));
    for (const auto& child : entry.children) {
      printTree(*child, own, child == entry.children.back());
    }
  }

  void emptyLine() { text_ += '\n'; }

  std::string take() { return std::move(text_); }

 private:
  static std::string header(const RegistryTreeEntry& entry) {
    const size_t retained = entry.children.size() + 5;
    const char* states =
        entry.className == plainEntryClass ? "" : "registered, matched, active, busy 0 (0 ms), ";
    return fmt::format("  <class {}, id 0x{:x}, {}retain {}>", entry.className, entry.id, states,
                       retained);
  }

  void printProperties(const RegistryTreeEntry& entry, const std::string& indent) {
    line(indent + "{");
    for (const auto& [key, value] : entry.properties) {
      line(fmt::format("{}  \"{}\" = {}", indent, key, printedValue(value, style_.hexadecimal)));
    }
    line(indent + "}");
    line(indent);
  }

  void line(const std::string& whole) {
    const bool fits = style_.width == 0 || whole.size() <= style_.width;
    text_ += fits ? whole : whole.substr(0, style_.width - 1) + "$";
    text_ += '\n';
  }

  const RegistryPrintStyle style_;
  std::string text_;
};

}  // namespace

std::string printedValue(const PropertyValue& value, bool hexadecimal) {
  const auto printItem = [&](const PropertyValue& item) { return printedValue(item, hexadecimal); };
  if (const auto* bytes = value.data()) {
    return !hexadecimal && showsAsText(*bytes) ? dataAsText(*bytes) : dataAsDigits(*bytes);
  }
  if (const auto* text = value.text()) return "\"" + *text + "\"";
  if (const auto* number = value.number()) {
    const auto bits = static_cast<uint64_t>(*number);
    return hexadecimal ? fmt::format("0x{:x}", bits) : std::to_string(bits);
  }
  if (const auto* truth = value.boolean()) return *truth ? "Yes" : "No";
  if (const auto* items = value.array()) return "(" + listed(*items, printItem) + ")";
  if (const auto* entries = value.dictionary()) {
    return "{" +
           listed(*entries,
                  [&](const auto& entry) {
                    return "\"" + entry.first + "\"=" + printItem(entry.second);
                  }) +
           "}";
  }
  return "\"\"";
}

std::string registryText(const std::vector<const RegistryTreeEntry*>& roots,
                         const RegistryPrintStyle& style) {
  TextPrinter printer(style);
  for (const RegistryTreeEntry* root : roots) {
    if (root != roots.front()) printer.emptyLine();
    printer.printTree(*root, "", true);
  }
  return printer.take();
}

}  // namespace corvane
