#include <algorithm>
#include <cstring>
#include <string_view>

#include "CORVANE2Archive/ArchiveChunk.h"
#include "CORVANE2Archive/ArchiveHeader.h"
#include "CORVANE2Archive/ArchiveIndex.h"
#include "CORVANE2Archive/ArchiveMemory.h"
#include "CORVANE2Archive/VelmarArchive.h"

namespace corvane {

namespace {

/// Reads and judges a whole package of `size` bytes in `text`. The header is taken
/// from the same pass over the file, so that it and the body belong together even
/// if the file is replaced meanwhile.
ArchiveStatus readPackage(ArchiveStream& archive, char* text, std::size_t size,
                          const ArchiveProgress& progress) {
  ArchiveHeader header;
  if (size < archiveHeaderSize || !archive.read(&header, archiveHeaderSize)) {
    return ArchiveShortRead;
  }
  std::memcpy(text, &header, archiveHeaderSize);
  std::uint64_t sum = 0;
  const auto status = readBody(archive, text + archiveHeaderSize, size - archiveHeaderSize,
                               isScrambled(header), sum, progress);
  if (status != ArchiveSuccess) return status;
  if (checksumField(sum) != storedChecksum(header)) return ArchiveChecksumMismatch;
  if (!hasMagic(header)) return ArchiveNotRecognized;
  return ArchiveSuccess;
}

/// A copy of the text for the caller; a text that was not found stays unset.
ArchiveStatus copyFound(std::string_view text, char*& out) {
  if (text.data() == nullptr) return ArchiveSuccess;
  out = copyText(text).release();
  return out ? ArchiveSuccess : ArchiveOutOfMemory;
}

ArchiveStatus copyMember(const ArchiveMember& member, ArchiveFile& file) {
  auto status = copyFound(member.id, file.id);
  if (!status) status = copyFound(member.version, file.version);
  if (!status) status = copyFound(member.description, file.description);
  if (!status) status = copyFound(member.name, file.name);
  file.size = member.size;
  return status;
}

}  // namespace

ArchiveStatus VelmarArchive_read(const char* path, char** textOut,
                                 const ArchiveProgress& progress) {
  *textOut = nullptr;
  auto archive = ArchiveStream::forReading(path);
  if (!archive) return ArchiveNotOpened;
  const auto size = archive.measure();
  if (!size) return ArchiveShortRead;
  auto text = allocateZeroed(*size + 1);
  if (!text) return ArchiveOutOfMemory;
  // The text exists once: it is read, summed and complemented where it stays.
  const auto status = readPackage(archive, text.get(), *size, progress);
  if (status != ArchiveSuccess) std::fill_n(text.get(), *size, '\0');
  *textOut = text.release();
  return status;
}

ArchiveStatus VelmarArchive_parse_archive(const char* text, ArchiveInfo& info) {
  auto status = _xmlParse_element(text, "archive_id", &info.id);
  if (!status) status = _xmlParse_element(text, "archive_version", &info.version);
  if (status != ArchiveSuccess) return status;
  const auto count = elementText(text, "archive_file_count");
  if (!count) return ArchiveFileIdNotFound;
  info.fileCount = leadingNumber(*count);
  return ArchiveSuccess;
}

ArchiveStatus VelmarArchive_parse_file(const char* text, const char* fileId, ArchiveFile& file) {
  const std::string_view index(text);
  // Untouched zero pages cost nothing, so the generous size is not paid for.
  file.data = reinterpret_cast<std::uint8_t*>(allocateZeroed(index.size()).release());
  if (file.data == nullptr) return ArchiveOutOfMemory;
  ArchiveMember member;
  const auto found = findMember(index, fileId, member);
  const auto copied = copyMember(member, file);
  if (found != ArchiveSuccess) return found;
  if (copied != ArchiveSuccess) return copied;
  file.decodedSize = decodeChunk(member.chunk, reinterpret_cast<char*>(file.data));
  return ArchiveSuccess;
}

}  // namespace corvane
