#pragma once

/// The rules of the 64-byte header and of the sum that it carries.

#include <array>
#include <cstddef>
#include <cstdint>

#include "CORVANE2Archive/ArchiveStream.h"
#include "CORVANE2Archive/VelmarArchive.h"

namespace corvane {

inline constexpr std::size_t archiveHeaderSize = sizeof(ArchiveHeader);

using ChecksumField = std::array<std::uint8_t, sizeof(ArchiveHeader::checksum)>;

/// The header of a package that is being written.
ArchiveHeader openHeader();

bool hasMagic(const ArchiveHeader& header);
bool hasOpenMarker(const ArchiveHeader& header);
bool isScrambled(const ArchiveHeader& header);
ChecksumField storedChecksum(const ArchiveHeader& header);

/// The low 32 bits of a body's sum as the header carries them: little-endian, and
/// no byte zero, so that the header can be a part of a zero-terminated text.
ChecksumField checksumField(std::uint64_t sum);

/// Overwrites the checksum field of `path` in place; nothing else is touched.
ArchiveStatus stampChecksum(const char* path, const ChecksumField& field);

/// Reads `length` body bytes from the stream's position into `body`, adds up their
/// sum as stored, and complements them if they are `scrambled`. Works in pieces
/// that fit the processor's cache. Returns 0x105 when the file is shorter.
ArchiveStatus readBody(ArchiveStream& archive, char* body, std::size_t length, bool scrambled,
                       std::uint64_t& sum, const ArchiveProgress& progress);

}  // namespace corvane
