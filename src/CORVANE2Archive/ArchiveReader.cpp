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

ArchiveStatus parseElement(std::string_view text, std::string_view name, char*& out) {
  const auto element = elementText(text, name);
  if (!element) return ArchiveFileIdNotFound;
  out = copyText(*element).release();
  return out ? ArchiveSuccess : ArchiveOutOfMemory;
}

ArchiveStatus parseNumber(std::string_view text, std::string_view name, std::int32_t& out) {
  const auto element = elementText(text, name);
  if (!element) return ArchiveFileIdNotFound;
  out = leadingNumber(*element);
  return ArchiveSuccess;
}

ArchiveStatus parseChunk(std::string_view block, ArchiveFile& file) {
  const auto chunk = elementText(block, "file_chunk");
  if (!chunk) return ArchiveFileIdNotFound;
  file.decodedSize = decodeChunk(*chunk, reinterpret_cast<char*>(file.data));
  return ArchiveSuccess;
}

ArchiveStatus parseBlock(std::string_view block, ArchiveFile& file) {
  auto status = parseElement(block, "file_id", file.id);
  if (!status) status = parseElement(block, "file_version", file.version);
  if (!status) status = parseElement(block, "file_description", file.description);
  if (!status) status = parseElement(block, "file_name", file.name);
  if (!status) status = parseNumber(block, "file_size", file.size);
  if (!status) status = parseChunk(block, file);
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
  const std::string_view index(text);
  auto status = parseElement(index, "archive_id", info.id);
  if (!status) status = parseElement(index, "archive_version", info.version);
  if (!status) status = parseNumber(index, "archive_file_count", info.fileCount);
  return status;
}

ArchiveStatus VelmarArchive_parse_file(const char* text, const char* fileId, ArchiveFile& file) {
  const std::string_view index(text);
  // Untouched zero pages cost nothing, so the generous size is not paid for.
  file.data = reinterpret_cast<std::uint8_t*>(allocateZeroed(index.size()).release());
  if (file.data == nullptr) return ArchiveOutOfMemory;
  const auto block = listBlock(index, "archive_file", "file_id", fileId);
  return block ? parseBlock(*block, file) : ArchiveFileIdNotFound;
}

}  // namespace corvane
