#pragma once

/// The four things the rest of the system does with package archives: build one,
/// extract a file, read the package's own record, read a file's version. Each call
/// reads or writes the whole package and releases what it allocated. The statuses,
/// records and general rules are those of VelmarArchive.h. A function of the caller's
/// that throws is let through.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

#include "CORVANE2Archive/VelmarArchive.h"

namespace corvane {

/// Bytes that callers keep for a version text, terminator included.
inline constexpr std::size_t archiveVersionCapacity = 32;

/// What an extraction came to, in bytes.
struct ArchiveExtraction {
  std::int32_t claimed = 0;   ///< what the package says the file's size is
  std::uint64_t decoded = 0;  ///< what the package really holds
  std::uint64_t due = 0;      ///< what was to be written
  std::uint64_t written = 0;  ///< what arrived in the output file
};

/// The files that a package is built of, asked for one after another.
struct ArchiveFiles {
  /// The file at that index from 0; it and its bytes are used until the next one is asked for.
  std::function<const ArchiveFile&(std::int32_t index)> at;
  std::uint64_t bytes = 0;  ///< how many they hold together; for the progress only
};

/// Builds the package `path` of the first `info.fileCount` of `files`. Stops at the
/// first failure and returns its status; the package then stays open and incomplete.
/// Reading back what was written counts in `progress` as much as writing it.
ArchiveStatus CORVANE2Archive_Compress(const char* path, const ArchiveInfo& info,
                                       const ArchiveFiles& files,
                                       const ArchiveProgress& progress = {});

/// Extracts the file `fileId` of the package `path` into `outPath`, created or
/// emptied. Writes as many bytes as the package claims: zeros stand for those that
/// it does not hold, but the file never gets longer than the package is. A short
/// write does not change the status, ask `extraction` for it.
/// Returns 0x100 when `outPath` cannot be created; on any other failure `outPath`
/// is not touched.
ArchiveStatus CORVANE2Archive_Decompress(const char* path, const char* fileId, const char* outPath,
                                         ArchiveExtraction* extraction = nullptr,
                                         const ArchiveProgress& progress = {});

/// Is shown a file of a package. Its texts last until the function that shows it returns.
using ArchiveVisitor = std::function<void(const ArchiveMember& member)>;

/// Fills an empty `info` from the package `path`; the caller owns its texts
/// (`VelmarArchive_free_archive`), also after a failure. Then shows each file of the package in
/// order to `eachFile`, if there is one; the first that is not complete ends it with 0x11.
ArchiveStatus CORVANE2Archive_Parse_Archive(const char* path, ArchiveInfo& info,
                                            const ArchiveVisitor& eachFile = {},
                                            const ArchiveProgress& progress = {});

/// Copies the version text of the file `fileId` into `versionOut`, cut to fit and
/// always terminated. On failure `versionOut` is not touched.
ArchiveStatus CORVANE2Archive_Get_File_Version(const char* path, const char* fileId,
                                               std::span<char> versionOut,
                                               const ArchiveProgress& progress = {});

}  // namespace corvane
