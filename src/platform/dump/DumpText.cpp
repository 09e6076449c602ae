#include "platform/dump/DumpText.h"

#include <algorithm>
#include <string>
#include <utility>

#include "platform/dump/DumpValue.h"

namespace corvane {

namespace {

constexpr std::string_view entryMark = "+-o ";
constexpr std::string_view classMark = "  <class ";
constexpr std::string_view propertyMark = "  \"";
constexpr std::string_view keyEnd = "\" = ";
constexpr size_t columnsPerLevel = 2;

/// No terminal that cuts a line is narrower.
constexpr size_t narrowestCut = 16;

/// The line that begins at `begin`, without its line end; `next` is where the one behind it begins.
std::string_view lineAt(std::string_view text, size_t begin, size_t& next) {
  const size_t end = std::min(text.find('\n', begin), text.size());
  next = std::min(end + 1, text.size());
  std::string_view line = text.substr(begin, end - begin);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

/// The bars and blanks at the start of a line.
std::string_view indentOf(std::string_view line) {
  return line.substr(0, std::min(line.find_first_not_of(" |"), line.size()));
}

bool isCut(std::string_view line) {
  return line.ends_with('$') && line.size() >= narrowestCut;
}

/// The columns before the mark of an entry's header; nothing when the line is no header.
std::optional<std::string_view> headerIndent(std::string_view line) {
  const std::string_view indent = indentOf(line);
  if (indent.size() % columnsPerLevel != 0 || !line.substr(indent.size()).starts_with(entryMark)) {
    return std::nullopt;
  }
  if (line.find(classMark, indent.size()) == std::string_view::npos && !isCut(line)) {
    return std::nullopt;
  }
  return indent;
}

bool isLocation(std::string_view text) {
  constexpr std::string_view characters = "0123456789ABCDEF,";
  return !text.empty() && text.front() != ',' && text.back() != ',' &&
         text.find_first_not_of(characters) == std::string_view::npos;
}

void splitLocation(std::string_view printed, DumpHeader& header) {
  const size_t at = printed.rfind('@');
  const bool hasLocation = at != std::string_view::npos && isLocation(printed.substr(at + 1));
  header.name = hasLocation ? printed.substr(0, at) : printed;
  header.location = hasLocation ? printed.substr(at + 1) : std::string_view();
}

/// Whether one of the comma-separated states is `state`.
bool hasState(std::string_view states, std::string_view state) {
  for (size_t place = states.find(state); place != std::string_view::npos;
       place = states.find(state, place + 1)) {
    const size_t end = place + state.size();
    const bool begins = place >= 2 && states.substr(place - 2, 2) == ", ";
    const bool ends = end == states.size() || states[end] == ',' || states[end] == '>';
    if (begins && ends) return true;
  }
  return false;
}

}  // namespace

std::optional<DumpTextEntry> DumpTextScanner::next() {
  while (position_ < text_.size()) {
    const size_t begin = position_;
    const std::string_view line = lineAt(text_, begin, position_);
    const std::optional<std::string_view> indent = headerIndent(line);
    if (indent) {
      skipBlock(*indent);
      return DumpTextEntry{begin, position_, indent->size() / columnsPerLevel};
    }
    countStray(line);
  }
  return std::nullopt;
}

/// Passes over the property block, if one begins here.
void DumpTextScanner::skipBlock(std::string_view header) {
  size_t next = 0;
  const std::string_view opening = lineAt(text_, position_, next);
  const std::string_view indent = indentOf(opening);
  if (opening.substr(indent.size()) != "{" || indent.size() < header.size()) return;
  position_ = next;
  while (position_ < text_.size()) {
    const std::string_view line = lineAt(text_, position_, next);
    if (line.starts_with(indent)) {
      if (closesBlock(line, next, indent)) {
        position_ = next;
        return;
      }
    } else if (beginsEntry(line, indent)) {
      return;
    }
    position_ = next;
  }
}

/// A closing brace is followed by a line of bars, by the next entry or by nothing; one that stands
/// alone on a line of a text is not.
bool DumpTextScanner::closesBlock(std::string_view line, size_t next,
                                  std::string_view indent) const {
  if (line.size() != indent.size() + 1 || line.back() != '}') return false;
  size_t ignored = 0;
  const std::string_view following = lineAt(text_, next, ignored);
  return indentOf(following).size() == following.size() || isCut(following) ||
         beginsEntry(following, indent);
}

/// Whether an entry's header stands inside an unclosed block, rather than a text that looks like
/// one: its columns are those of the block's own ancestors.
bool DumpTextScanner::beginsEntry(std::string_view line, std::string_view indent) const {
  const std::optional<std::string_view> header = headerIndent(line);
  if (!header || header->empty() || !indent.starts_with(*header)) return false;
  return line.ends_with('>') || isCut(line);
}

void DumpTextScanner::countStray(std::string_view line) {
  if (indentOf(line).size() == line.size()) return;
  ++(isCut(line) ? problems_.cutLines : problems_.unreadableLines);
}

DumpHeader readDumpHeader(std::string_view entry) {
  size_t next = 0;
  std::string_view line = lineAt(entry, 0, next);
  line.remove_prefix(std::min(indentOf(line).size() + entryMark.size(), line.size()));
  DumpHeader header;
  const size_t classPlace = line.rfind(classMark);
  if (classPlace == std::string_view::npos) {
    if (line.ends_with('$')) line.remove_suffix(1);
    splitLocation(line, header);
    return header;
  }
  splitLocation(line.substr(0, classPlace), header);
  const std::string_view states = line.substr(classPlace + classMark.size());
  header.className = states.substr(0, states.find_first_of(",>$"));
  header.announced = !hasState(states, "!registered") && !hasState(states, "inactive");
  return header;
}

DumpPropertyLines::DumpPropertyLines(std::string_view entry, DumpProblems& problems)
    : entry_(entry), problems_(problems) {
  lineAt(entry_, 0, position_);
  const std::string_view opening = lineAt(entry_, position_, position_);
  indent_ = indentOf(opening);
  if (opening.substr(indent_.size()) != "{") position_ = entry_.size();
  findKey();
}

std::optional<DumpProperty> DumpPropertyLines::next() {
  if (!keyLine_) return std::nullopt;
  const KeyLine found = *keyLine_;
  const size_t valueEnd = findKey();
  return DumpProperty{found.key, entry_.substr(found.valueBegin, std::max(valueEnd, found.lineEnd) -
                                                                     found.valueBegin)};
}

/// Goes on to the next property's first line. Returns where the lines before it, which continue the
/// value of the property before it, end; 0 when there are none.
size_t DumpPropertyLines::findKey() {
  const bool continues = keyLine_.has_value();
  bool broken = false;
  size_t end = 0;
  keyLine_.reset();
  while (position_ < entry_.size()) {
    const size_t begin = position_;
    const std::string_view line = lineAt(entry_, begin, position_);
    keyLine_ = keyLineAt(line, begin);
    if (keyLine_ || isClosing(line)) return end;
    if (isCutKey(line)) {
      ++problems_.cutLines;
      broken = true;
    } else if (continues && !broken) {
      end = begin + line.size();
    } else {
      ++problems_.unreadableLines;
    }
  }
  return end;
}

std::optional<DumpPropertyLines::KeyLine> DumpPropertyLines::keyLineAt(std::string_view line,
                                                                       size_t begin) const {
  if (!line.starts_with(indent_) || !line.substr(indent_.size()).starts_with(propertyMark)) {
    return std::nullopt;
  }
  const size_t place = indent_.size() + propertyMark.size();
  const size_t end = line.find(keyEnd, place);
  if (end == std::string_view::npos) return std::nullopt;
  return KeyLine{line.substr(place, end - place), begin + end + keyEnd.size(), begin + line.size()};
}

bool DumpPropertyLines::isClosing(std::string_view line) const {
  return position_ == entry_.size() && line.size() == indent_.size() + 1 &&
         line.starts_with(indent_) && line.back() == '}';
}

/// Whether a line is cut within its columns or its key, so that it continues nothing.
bool DumpPropertyLines::isCutKey(std::string_view line) const {
  if (!isCut(line)) return false;
  const bool cutInColumns = indent_.starts_with(line.substr(0, line.size() - 1));
  const bool cutInKey =
      line.starts_with(indent_) && line.substr(indent_.size()).starts_with(propertyMark);
  return cutInColumns || cutInKey;
}

std::optional<std::string_view> findCutDumpText(std::string_view entry, std::string_view key) {
  DumpProblems ignored;
  DumpPropertyLines lines(entry, ignored);
  while (const std::optional<DumpProperty> property = lines.next()) {
    std::string_view value = property->value;
    if (property->key != key || !value.starts_with('"') || !value.ends_with('$')) continue;
    value.remove_prefix(1);
    value.remove_suffix(1);
    return value;
  }
  return std::nullopt;
}

PropertyValue::Dictionary readDumpProperties(std::string_view entry, DumpProblems& problems) {
  PropertyValue::Dictionary properties;
  DumpPropertyLines lines(entry, problems);
  while (const std::optional<DumpProperty> property = lines.next()) {
    std::optional<PropertyValue> value = readDumpValue(property->value, problems);
    if (value) properties.insert_or_assign(std::string(property->key), std::move(*value));
  }
  return properties;
}

}  // namespace corvane
