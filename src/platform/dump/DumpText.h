#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "platform/PropertyValue.h"
#include "platform/dump/DumpProblems.h"

namespace corvane {

/// What is told of an entry besides its properties. The texts lie in the dump itself.
struct DumpHeader {
  std::string_view name;
  std::string_view location;   ///< empty for none
  std::string_view className;  ///< empty when it is cut away
  bool announced = true;       ///< the dump does not say that it is unregistered or inactive
};

/// An entry's place in the text: its header line and the property block behind it, if any.
struct DumpTextEntry {
  size_t begin = 0;
  size_t end = 0;
  size_t depth = 0;  ///< 0 for a root
};

/// Finds the entries of a text that `ioreg` printed, from top to bottom in one pass. Nothing is
/// copied; the text must outlive the scanner.
///
/// A property block ends at a closing brace that stands exactly below its opening one, so braces in
/// texts that run over several lines do no harm. Where the closing brace is missing, the next
/// entry's header ends the block.
class DumpTextScanner {
 public:
  explicit DumpTextScanner(std::string_view text) : text_(text) {}

  /// The next entry; nothing at the end.
  std::optional<DumpTextEntry> next();

  /// Lines so far that belong to no entry.
  const DumpProblems& problems() const { return problems_; }

 private:
  void skipBlock(std::string_view indent);
  bool closesBlock(std::string_view line, size_t next, std::string_view indent) const;
  bool beginsEntry(std::string_view line, std::string_view indent) const;
  void countStray(std::string_view line);

  std::string_view text_;
  size_t position_ = 0;
  DumpProblems problems_;
};

/// Takes the header line at the start of an entry's text apart.
DumpHeader readDumpHeader(std::string_view entry);

/// A property as it is printed. The texts lie in the dump itself.
struct DumpProperty {
  std::string_view key;
  std::string_view value;  ///< may run over several lines
};

/// The properties of one entry's text, in their order. Lines that belong to none are added to
/// `problems`.
class DumpPropertyLines {
 public:
  DumpPropertyLines(std::string_view entry, DumpProblems& problems);

  /// The next property; nothing at the end.
  std::optional<DumpProperty> next();

 private:
  struct KeyLine {
    std::string_view key;
    size_t valueBegin;
    size_t lineEnd;
  };

  size_t findKey();
  std::optional<KeyLine> keyLineAt(std::string_view line, size_t begin) const;
  bool isClosing(std::string_view line) const;
  bool isCutKey(std::string_view line) const;

  std::string_view entry_;
  DumpProblems& problems_;
  std::string_view indent_;
  size_t position_ = 0;
  std::optional<KeyLine> keyLine_;  ///< of the property that next() gives
};

/// What is left of the text under `key` in an entry's text when it was cut at the width of a
/// terminal; else nothing.
std::optional<std::string_view> findCutDumpText(std::string_view entry, std::string_view key);

/// All properties of an entry's text. Of a key that stands twice the last one counts.
PropertyValue::Dictionary readDumpProperties(std::string_view entry, DumpProblems& problems);

}  // namespace corvane
