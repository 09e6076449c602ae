#pragma once

/// Velmar package archives: one file that carries any number of named files.
///
/// A package is a 64-byte header and a body. The body is an XML-like index text
/// that holds each file's texts and its bytes in base64; it is stored with every
/// byte complemented and guarded by a 16-bit word sum. docs/archive-format.md has
/// the layout byte for byte. Most callers need only CORVANE2Archive.h.
///
/// To write a package, call `VelmarArchive_create_begin`, `VelmarArchive_add` for
/// each file and `VelmarArchive_create_end`. The state between the calls lives in
/// the package alone: it is "open" until `VelmarArchive_create_end` stamps it.
///
/// To read one, call `VelmarArchive_read` and then `VelmarArchive_parse_archive`
/// or `VelmarArchive_parse_file` on its text.
///
/// Paths are in the encoding of the platform's file system. Nothing here throws,
/// keeps global state or starts a thread; different packages may be handled on
/// different threads at once. A progress function that throws is let through.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

namespace corvane {

/// What every archive function returns. Only 0 means success.
enum ArchiveStatus : std::uint32_t {
  ArchiveSuccess = 0x0,
  ArchiveFileIdNotFound = 0x11,     ///< no file with that id, or its block lacks an element
  ArchiveNotRecognized = 0x12,      ///< wrong magic; for the writer also: not open
  ArchiveChecksumMismatch = 0x13,   ///< the body is not what was stamped, or never was stamped
  ArchiveFileCountMismatch = 0x14,  ///< more or fewer files were added than announced
  ArchiveOutputNotCreated = 0x100,  ///< the file to extract into cannot be created
  ArchiveNotOpened = 0x101,         ///< the package cannot be opened
  ArchiveShortWrite = 0x104,        ///< fewer bytes were written than asked
  ArchiveShortRead = 0x105,         ///< fewer bytes were read than asked
  ArchiveOutOfMemory = 0x801,       ///< a memory allocation failed
};

/// The meaning of a status as a part of a sentence: "the checksum does not match".
const char* VelmarArchive_status_text(ArchiveStatus status);

/// The first 64 bytes of a package, as stored.
struct ArchiveHeader {
  char magic[8];             ///< "*VELARC*", no terminator
  char scramble;             ///< '1': the body is stored complemented
  char reserved[51];         ///< '0' each; never interpreted
  std::uint8_t checksum[4];  ///< "0000" while open, then the stamp of the body's sum
};
static_assert(sizeof(ArchiveHeader) == 64, "the header is stored as it lies in memory");

/// A package as a whole. The texts are zero-terminated. When filled by the reader
/// they are owned by the caller: `VelmarArchive_free_archive`.
struct ArchiveInfo {
  char* id = nullptr;
  char* version = nullptr;
  std::int32_t fileCount = 0;
};

/// One file of a package. The texts are zero-terminated. When filled by the reader
/// everything is owned by the caller: `VelmarArchive_free_file`.
struct ArchiveFile {
  char* id = nullptr;
  char* version = nullptr;
  char* description = nullptr;
  char* name = nullptr;
  std::int32_t size = 0;         ///< bytes; from the reader, what the package claims
  std::uint8_t* data = nullptr;  ///< the file's bytes
  std::size_t decodedSize = 0;   ///< set by the reader: the bytes of `data` that the package
                                 ///< really holds; differs from `size` only if it is faulty
};

/// One file of a package as views into the package's text, which must outlive them: nothing is
/// copied, nothing decoded.
struct ArchiveMember {
  std::string_view id;
  std::string_view version;
  std::string_view description;
  std::string_view name;
  std::int32_t size = 0;   ///< bytes, as the package claims
  std::string_view chunk;  ///< the bytes in base64

  /// How many bytes `chunk` really holds. Decodes it all.
  std::uint64_t decodedSize() const;
};

/// Told now and then how many of `total` bytes are done. May be empty.
using ArchiveProgress = std::function<void(std::uint64_t done, std::uint64_t total)>;

/// Creates or empties `path` and writes the header to it, in four writes; a short
/// one does not stop the rest. Whatever followed a header in `path` is gone.
/// Returns 0x101 or 0x104 on failure.
ArchiveStatus _save_Header(const char* path, const ArchiveHeader& header);

/// Reads the header of `path`, field by field; a short field does not stop the
/// rest and leaves the remainder of that field as it was. Does not look at what
/// it reads. Returns 0x101 or 0x105 on failure.
ArchiveStatus _load_Header(const char* path, ArchiveHeader& header);

/// Finds the first "<name>" and, independently, the first "</name>" in `text` and
/// sets `*out` to a copy of what lies between, for the caller to `free`. Returns
/// 0x11 when either is missing or they come in the wrong order, 0x801 without
/// memory; `*out` is then left alone.
ArchiveStatus _xmlParse_element(const char* text, const char* name, char** out);

/// Copies the first `listTag` element whose `keyTag` element is exactly `keyValue`
/// into `out`, tags included, without a terminator: `out` is `textLength` bytes,
/// zeroed by the caller. Returns 0x11 when there is no such element.
ArchiveStatus _xmlBase_list_one(const char* listTag, const char* keyTag, const char* keyValue,
                                const char* text, std::size_t textLength, char* out);

/// Creates or empties `path` and begins a package of `info.fileCount` files in it.
/// Texts are written as given: they must not hold "<", and a byte 0xFF ends the
/// piece of index text that it stands in. Unset texts count as empty.
/// Returns 0x101, 0x104 or 0x801 on failure.
ArchiveStatus VelmarArchive_create_begin(const char* path, const ArchiveInfo& info);

/// Appends one file to the open package `path`. `file.size` must not be negative.
/// A failure leaves a partial file behind; the package cannot be used afterwards.
/// Returns 0x12 when `path` is not an open package, 0x101, 0x104 or 0x801.
ArchiveStatus VelmarArchive_add(const char* path, const ArchiveFile& file,
                                const ArchiveProgress& progress = {});

/// Ends the open package `path`: appends the tail, counts the files and stamps the
/// checksum into the header in place, so that no failure can cost the body. After
/// 0x14 the package stays open, with the tail appended.
/// Returns 0x12, 0x14, 0x101, 0x104, 0x105 or 0x801 on failure, the last one set.
ArchiveStatus VelmarArchive_create_end(const char* path, const ArchiveProgress& progress = {});

/// Reads the closed package `path` and sets `*textOut` to its header and plain
/// index text as one zero-terminated text, for `VelmarArchive_free_xml`. Call that
/// after a failure too: the text may be allocated and is then empty.
/// Returns 0x13 before 0x12 when both apply, 0x101, 0x105 or 0x801.
ArchiveStatus VelmarArchive_read(const char* path, char** textOut,
                                 const ArchiveProgress& progress = {});

/// Fills an empty `info` from the text of `VelmarArchive_read`. On failure (0x11,
/// 0x801) what was found so far stays in `info`.
ArchiveStatus VelmarArchive_parse_archive(const char* text, ArchiveInfo& info);

/// Fills an empty `file` with the file whose id is `fileId`. `file.data` holds
/// strlen(text) bytes, zero behind the first `file.decodedSize`. On failure (0x11,
/// 0x801) what was found so far stays in `file`.
ArchiveStatus VelmarArchive_parse_file(const char* text, const char* fileId, ArchiveFile& file);

/// Frees what the reader put into `info`, and unsets it. Returns 0.
ArchiveStatus VelmarArchive_free_archive(ArchiveInfo& info);

/// Frees what the reader put into `file`, and unsets it. Returns 0.
ArchiveStatus VelmarArchive_free_file(ArchiveFile& file);

/// Frees the text of `VelmarArchive_read`, and unsets it. Returns 0.
ArchiveStatus VelmarArchive_free_xml(char** text);

}  // namespace corvane
