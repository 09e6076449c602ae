#include <charconv>
#include <cstring>
#include <initializer_list>
#include <span>
#include <string_view>

#include "CORVANE2Archive/ArchiveChunk.h"
#include "CORVANE2Archive/ArchiveHeader.h"
#include "CORVANE2Archive/ArchiveIndex.h"
#include "CORVANE2Archive/ArchiveMemory.h"
#include "CORVANE2Archive/VelmarArchive.h"

namespace corvane {

namespace {

constexpr std::string_view packageTail = "</velmar_archive>";

/// More than the tags of any one piece of index text need.
constexpr std::size_t tagAllowance = 1024;

std::string_view textOf(const char* text) {
  return text == nullptr ? std::string_view() : text;
}

class DecimalText {
 public:
  explicit DecimalText(std::int32_t number)
      : length_(static_cast<std::size_t>(
            std::to_chars(digits_, digits_ + sizeof digits_, number).ptr - digits_)) {}

  operator std::string_view() const { return {digits_, length_}; }

 private:
  char digits_[12];
  std::size_t length_;
};

/// Index text is complemented as a zero-terminated text: a byte 0xFF becomes the
/// terminator, and what stood behind it is lost. Other readers and writers of the
/// format agree on that. Returns the length that is left.
std::size_t complementText(char* text, std::size_t length) {
  const void* end = std::memchr(text, 0xFF, length);
  if (end != nullptr) length = static_cast<std::size_t>(static_cast<const char*>(end) - text);
  complement(text, length);
  return length;
}

/// Writes pieces of body, complemented, each with one write. A short write is kept
/// as the status and does not stop the rest.
class BodyWriter {
 public:
  BodyWriter(ArchiveStream& archive, char* segment) : archive_(archive), segment_(segment) {}

  void writeText(std::initializer_list<std::string_view> pieces) {
    std::size_t length = 0;
    for (const auto piece : pieces) length += piece.copy(segment_ + length, piece.size());
    write(segment_, complementText(segment_, length));
  }

  void writeChunkPiece(char* code, std::size_t length) {
    complement(code, length);
    write(code, length);
  }

  /// Closes the package and returns the status of it all.
  ArchiveStatus finish() { return archive_.close() ? status_ : ArchiveShortWrite; }

 private:
  void write(const char* bytes, std::size_t length) {
    if (!archive_.write(bytes, length)) status_ = ArchiveShortWrite;
  }

  ArchiveStream& archive_;
  char* segment_;
  ArchiveStatus status_ = ArchiveSuccess;
};

std::size_t longestSegment(const ArchiveFile& file) {
  return textOf(file.id).size() + textOf(file.version).size() + textOf(file.description).size() +
         textOf(file.name).size() + tagAllowance;
}

/// Whether files may be added to `path`. A file too short for a header is no open
/// package; one that cannot be opened keeps that status.
ArchiveStatus requireOpenPackage(const char* path) {
  ArchiveHeader header = {};
  if (_load_Header(path, header) == ArchiveNotOpened) return ArchiveNotOpened;
  return hasMagic(header) && hasOpenMarker(header) ? ArchiveSuccess : ArchiveNotRecognized;
}

std::span<const std::uint8_t> bytesOf(const ArchiveFile& file) {
  if (file.data == nullptr || file.size <= 0) return {};
  return {file.data, static_cast<std::size_t>(file.size)};
}

void writeFileTexts(BodyWriter& body, const ArchiveFile& file) {
  body.writeText({"\n\t<archive_file>\n\t\t<file_id>", textOf(file.id), "</file_id>"});
  body.writeText({"\n\t\t<file_version>", textOf(file.version), "</file_version>"});
  body.writeText({"\n\t\t<file_description>", textOf(file.description), "</file_description>"});
  body.writeText({"\n\t\t<file_name>", textOf(file.name), "</file_name>"});
  body.writeText({"\n\t\t<file_size>", DecimalText(file.size), "</file_size>"});
}

void writeChunk(BodyWriter& body, std::span<const std::uint8_t> bytes, char* code,
                const ArchiveProgress& progress) {
  ChunkEncoder encoder(bytes);
  while (const auto length = encoder.next(code)) {
    body.writeChunkPiece(code, length);
    if (progress) progress(bytes.size() - encoder.remaining(), bytes.size());
  }
}

ArchiveStatus appendTail(const char* path, char* segment) {
  ArchiveStream archive(path, "ab");
  if (!archive) return ArchiveNotOpened;
  BodyWriter body(archive, segment);
  body.writeText({packageTail});
  return body.finish();
}

struct BodySurvey {
  std::uint64_t sum = 0;
  bool filesComplete = false;
};

bool announcesItsFiles(std::string_view index) {
  const auto announced = elementText(index, "archive_file_count");
  return announced && leadingNumber(*announced) >= 0 &&
         countFileBlocks(index) == static_cast<std::uint64_t>(leadingNumber(*announced));
}

/// Reads the body back from the disk and looks at what was really written.
ArchiveStatus surveyBody(const char* path, BodySurvey& survey, const ArchiveProgress& progress) {
  auto archive = ArchiveStream::forReading(path);
  if (!archive) return ArchiveNotOpened;
  const auto size = archive.measure();
  if (!size || *size < archiveHeaderSize || !archive.seek(archiveHeaderSize)) {
    return ArchiveShortRead;
  }
  const std::size_t length = *size - archiveHeaderSize;
  const auto body = allocateZeroed(length);
  if (!body) return ArchiveOutOfMemory;
  const auto status = readBody(archive, body.get(), length, true, survey.sum, progress);
  if (status != ArchiveSuccess) return status;
  survey.filesComplete = announcesItsFiles({body.get(), length});
  return ArchiveSuccess;
}

}  // namespace

ArchiveStatus VelmarArchive_create_begin(const char* path, const ArchiveInfo& info) {
  const auto id = textOf(info.id);
  const auto version = textOf(info.version);
  const auto segment = allocateZeroed(id.size() + version.size() + tagAllowance);
  if (!segment) return ArchiveOutOfMemory;
  const auto saved = _save_Header(path, openHeader());
  if (saved != ArchiveSuccess) return saved;
  ArchiveStream archive(path, "ab");
  if (!archive) return ArchiveNotOpened;
  BodyWriter body(archive, segment.get());
  body.writeText({"\n<velmar_archive>\n\t<archive_id>", id, "</archive_id>\n\t<archive_version>",
                  version, "</archive_version>\n\t<archive_file_count>",
                  DecimalText(info.fileCount), "</archive_file_count>\n"});
  return body.finish();
}

ArchiveStatus VelmarArchive_add(const char* path, const ArchiveFile& file,
                                const ArchiveProgress& progress) {
  const auto segment = allocateZeroed(longestSegment(file));
  const auto code = allocateZeroed(ChunkEncoder::pieceCapacity);
  if (!segment || !code) return ArchiveOutOfMemory;
  const auto open = requireOpenPackage(path);
  if (open != ArchiveSuccess) return open;
  ArchiveStream archive(path, "ab");
  if (!archive) return ArchiveNotOpened;
  BodyWriter body(archive, segment.get());
  writeFileTexts(body, file);
  body.writeText({"\n\t\t<file_chunk>"});
  writeChunk(body, bytesOf(file), code.get(), progress);
  body.writeText({"</file_chunk>\n\t</archive_file>\n"});
  return body.finish();
}

ArchiveStatus VelmarArchive_create_end(const char* path, const ArchiveProgress& progress) {
  const auto segment = allocateZeroed(packageTail.size());
  if (!segment) return ArchiveOutOfMemory;
  const auto open = requireOpenPackage(path);
  if (open != ArchiveSuccess) return open;
  const auto appended = appendTail(path, segment.get());
  if (appended == ArchiveNotOpened) return appended;
  BodySurvey survey;
  const auto surveyed = surveyBody(path, survey, progress);
  if (surveyed != ArchiveSuccess) return surveyed;
  if (!survey.filesComplete) return ArchiveFileCountMismatch;
  if (appended != ArchiveSuccess) return appended;
  return stampChecksum(path, checksumField(survey.sum));
}

}  // namespace corvane
