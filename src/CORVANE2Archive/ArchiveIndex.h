#pragma once

/// Lookups in a package's plain index text that copy nothing: every result is a
/// view into the text and lives as long as it. The index is not XML, there is no
/// escaping and no nesting; lookups are plain searches for tags.

#include <cstdint>
#include <optional>
#include <string_view>

#include "CORVANE2Archive/VelmarArchive.h"

namespace corvane {

/// What lies between the first "<name>" and the first "</name>", each searched
/// from the beginning; nothing when one is missing or they are in the wrong order.
std::optional<std::string_view> elementText(std::string_view text, std::string_view name);

/// The first `listTag` element, tags included, that holds a `keyTag` element of
/// exactly `keyValue`.
std::optional<std::string_view> listBlock(std::string_view text, std::string_view listTag,
                                          std::string_view keyTag, std::string_view keyValue);

/// Takes the next file block off the front of `remaining`; nothing when there are
/// no more. A block that never ends reaches to the end of the text.
std::optional<std::string_view> takeFileBlock(std::string_view& remaining);

/// Fills `member` from its block. Returns 0x11 when the block does not end or an
/// element is missing; what comes before that element is filled.
ArchiveStatus readMember(std::string_view block, ArchiveMember& member);

/// Finds the file `fileId` and fills `member` from its block. Returns 0x11 when there is none.
ArchiveStatus findMember(std::string_view text, std::string_view fileId, ArchiveMember& member);

/// How many file blocks begin in `text`.
std::uint64_t countFileBlocks(std::string_view text);

/// The decimal number that `text` begins with, after white space; 0 when there is
/// none, the nearest representable value when it does not fit.
std::int32_t leadingNumber(std::string_view text);

}  // namespace corvane
