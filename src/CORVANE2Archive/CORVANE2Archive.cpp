#include "CORVANE2Archive/CORVANE2Archive.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "CORVANE2Archive/ArchiveChunk.h"
#include "CORVANE2Archive/ArchiveIndex.h"
#include "CORVANE2Archive/ArchiveStream.h"

namespace corvane {

namespace {

/// The text of a package, freed with the scope.
class PackageText {
 public:
  PackageText(const char* path, const ArchiveProgress& progress)
      : status_(VelmarArchive_read(path, &text_, progress)) {}
  ~PackageText() { VelmarArchive_free_xml(&text_); }
  PackageText(const PackageText&) = delete;
  PackageText& operator=(const PackageText&) = delete;

  ArchiveStatus status() const { return status_; }
  const char* text() const { return text_; }
  std::uint64_t length() const { return std::string_view(text_).size(); }

  ArchiveStatus find(const char* fileId, ArchiveMember& member) const {
    return status_ == ArchiveSuccess ? findMember(text_, fileId, member) : status_;
  }

 private:
  char* text_ = nullptr;
  ArchiveStatus status_;
};

/// Writes the bytes of one file until all that are due are written or the disk takes
/// no more.
class MemberWriter {
 public:
  MemberWriter(ArchiveStream& output, std::uint64_t due) : output_(output), due_(due) {}

  void write(std::string_view bytes) {
    const auto wanted = bytes.substr(0, due_ - written_);
    diskTakesMore_ = diskTakesMore_ && output_.write(wanted.data(), wanted.size());
    if (diskTakesMore_) written_ += wanted.size();
  }

  void writeZerosForTheRest() {
    static constexpr std::array<char, 4096> zeros{};
    while (diskTakesMore_ && written_ < due_) write({zeros.data(), zeros.size()});
  }

  std::uint64_t written() const { return written_; }

 private:
  ArchiveStream& output_;
  std::uint64_t due_;
  std::uint64_t written_ = 0;
  bool diskTakesMore_ = true;
};

/// Decodes straight into the output file, so that the bytes are never held as a
/// whole.
ArchiveExtraction writeMember(const ArchiveMember& member, std::uint64_t packageLength,
                              ArchiveStream& output) {
  ArchiveExtraction extraction{.claimed = member.size};
  extraction.due = std::min(static_cast<std::uint64_t>(std::max(member.size, 0)), packageLength);
  MemberWriter writer(output, extraction.due);
  ChunkDecoder decoder(member.chunk);
  for (auto piece = decoder.next(); !piece.empty(); piece = decoder.next()) {
    extraction.decoded += piece.size();
    writer.write(piece);
  }
  writer.writeZerosForTheRest();
  extraction.written = writer.written();
  return extraction;
}

}  // namespace

ArchiveStatus CORVANE2Archive_Compress(const char* path, const ArchiveInfo& info,
                                       const ArchiveFile* const* files) {
  auto status = VelmarArchive_create_begin(path, info);
  for (std::int32_t index = 0; status == ArchiveSuccess && index < info.fileCount; ++index) {
    status = VelmarArchive_add(path, *files[index]);
  }
  return status == ArchiveSuccess ? VelmarArchive_create_end(path) : status;
}

ArchiveStatus CORVANE2Archive_Decompress(const char* path, const char* fileId, const char* outPath,
                                         ArchiveExtraction* extraction,
                                         const ArchiveProgress& progress) {
  const PackageText package(path, progress);
  ArchiveMember member;
  const auto status = package.find(fileId, member);
  if (status != ArchiveSuccess) return status;
  ArchiveStream output(outPath, "wb");
  if (!output) return ArchiveOutputNotCreated;
  const auto written = writeMember(member, package.length(), output);
  if (extraction != nullptr) *extraction = written;
  return ArchiveSuccess;
}

ArchiveStatus CORVANE2Archive_Parse_Archive(const char* path, ArchiveInfo& info) {
  const PackageText package(path, {});
  if (package.status() != ArchiveSuccess) return package.status();
  return VelmarArchive_parse_archive(package.text(), info);
}

ArchiveStatus CORVANE2Archive_Get_File_Version(const char* path, const char* fileId,
                                               std::span<char> versionOut,
                                               const ArchiveProgress& progress) {
  const PackageText package(path, progress);
  ArchiveMember member;
  const auto status = package.find(fileId, member);
  if (status != ArchiveSuccess || versionOut.empty()) return status;
  const auto length = member.version.copy(versionOut.data(), versionOut.size() - 1);
  versionOut[length] = '\0';
  return ArchiveSuccess;
}

}  // namespace corvane
