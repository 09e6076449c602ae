#include "CORVANE2Archive/ArchiveIndex.h"

#include <algorithm>
#include <charconv>
#include <initializer_list>
#include <limits>

namespace corvane {

namespace {

constexpr std::string_view fileTag = "archive_file";
constexpr std::string_view fileIdTag = "file_id";
constexpr auto npos = std::string_view::npos;

/// A text to search for, in pieces, the first of which begins with "<". No base64
/// character is a "<", so a search skips a file's bytes at the speed of memchr.
using Pattern = std::initializer_list<std::string_view>;

std::size_t patternLength(Pattern pattern) {
  std::size_t length = 0;
  for (const auto piece : pattern) length += piece.size();
  return length;
}

bool matchesAt(std::string_view text, std::size_t position, Pattern pattern) {
  for (const auto piece : pattern) {
    if (text.compare(position, piece.size(), piece) != 0) return false;
    position += piece.size();
  }
  return true;
}

std::size_t findFirst(std::string_view text, Pattern pattern, std::size_t from = 0) {
  for (auto at = text.find('<', from); at != npos; at = text.find('<', at + 1)) {
    if (matchesAt(text, at, pattern)) return at;
  }
  return npos;
}

std::size_t findLast(std::string_view text, Pattern pattern) {
  for (auto at = text.rfind('<'); at != npos; at = text.rfind('<', at - 1)) {
    if (matchesAt(text, at, pattern)) return at;
    if (at == 0) break;
  }
  return npos;
}

}  // namespace

std::optional<std::string_view> elementText(std::string_view text, std::string_view name) {
  const Pattern openTag{"<", name, ">"};
  const auto open = findFirst(text, openTag);
  const auto close = findFirst(text, {"</", name, ">"});
  if (open == npos || close == npos) return std::nullopt;
  const auto begin = open + patternLength(openTag);
  if (close < begin) return std::nullopt;
  return text.substr(begin, close - begin);
}

std::optional<std::string_view> listBlock(std::string_view text, std::string_view listTag,
                                          std::string_view keyTag, std::string_view keyValue) {
  const auto key = findFirst(text, {"<", keyTag, ">", keyValue, "<"});
  if (key == npos) return std::nullopt;
  const Pattern closeTag{"</", listTag, ">"};
  const auto close = findFirst(text, closeTag, key);
  const auto open = findLast(text.substr(0, key), {"<", listTag, ">"});
  if (close == npos || open == npos) return std::nullopt;
  return text.substr(open, close + patternLength(closeTag) - open);
}

std::optional<std::string_view> takeFileBlock(std::string_view& remaining) {
  const auto open = findFirst(remaining, {"<", fileTag, ">"});
  if (open == npos) return std::nullopt;
  const Pattern closeTag{"</", fileTag, ">"};
  const auto close = findFirst(remaining, closeTag, open);
  const auto end = close == npos ? remaining.size() : close + patternLength(closeTag);
  const auto block = remaining.substr(open, end - open);
  remaining.remove_prefix(end);
  return block;
}

ArchiveStatus readMember(std::string_view block, ArchiveMember& member) {
  if (!block.ends_with("</archive_file>")) return ArchiveFileIdNotFound;
  const auto take = [block](std::string_view name, std::string_view& out) {
    const auto element = elementText(block, name);
    if (element) out = *element;
    return element.has_value();
  };
  std::string_view size;
  const bool complete = take(fileIdTag, member.id) && take("file_version", member.version) &&
                        take("file_description", member.description) &&
                        take("file_name", member.name) && take("file_size", size);
  member.size = leadingNumber(size);
  return complete && take("file_chunk", member.chunk) ? ArchiveSuccess : ArchiveFileIdNotFound;
}

ArchiveStatus findMember(std::string_view text, std::string_view fileId, ArchiveMember& member) {
  const auto block = listBlock(text, fileTag, fileIdTag, fileId);
  return block ? readMember(*block, member) : ArchiveFileIdNotFound;
}

std::uint64_t countFileBlocks(std::string_view text) {
  std::uint64_t count = 0;
  const Pattern openTag{"<", fileTag, ">"};
  for (auto at = findFirst(text, openTag); at != npos; at = findFirst(text, openTag, at + 1)) {
    ++count;
  }
  return count;
}

std::int32_t leadingNumber(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) return 0;
  }
  std::int32_t number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec != std::errc::result_out_of_range) return number;
  return text.starts_with('-') ? std::numeric_limits<std::int32_t>::min()
                               : std::numeric_limits<std::int32_t>::max();
}

}  // namespace corvane
