#include "CORVANE2Archive/CORVANE2Archive.h"

#include <algorithm>
#include <string_view>

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

 private:
  char* text_ = nullptr;
  ArchiveStatus status_;
};

/// One file of a package, freed with the scope.
class FileRecord {
 public:
  FileRecord() = default;
  ~FileRecord() { VelmarArchive_free_file(file_); }
  FileRecord(const FileRecord&) = delete;
  FileRecord& operator=(const FileRecord&) = delete;

  ArchiveFile& get() { return file_; }

 private:
  ArchiveFile file_;
};

/// What is due is there: the reader keeps as many bytes as the package has, zero behind the file's
/// own.
ArchiveExtraction writeFile(const ArchiveFile& file, std::uint64_t packageLength,
                            ArchiveStream& output) {
  ArchiveExtraction extraction{.claimed = file.size, .decoded = file.decodedSize};
  extraction.due = std::min(static_cast<std::uint64_t>(std::max(file.size, 0)), packageLength);
  extraction.written = output.writeSome(file.data, extraction.due);
  return extraction;
}

ArchiveStatus tellEachFile(std::string_view text, const ArchiveVisitor& eachFile) {
  while (const auto block = takeFileBlock(text)) {
    ArchiveMember member;
    const auto status = readMember(*block, member);
    if (status != ArchiveSuccess) return status;
    eachFile(member);
  }
  return ArchiveSuccess;
}

}  // namespace

ArchiveStatus CORVANE2Archive_Compress(const char* path, const ArchiveInfo& info,
                                       const ArchiveFiles& files, const ArchiveProgress& progress) {
  std::uint64_t added = 0;
  const auto tell = [&](std::uint64_t done, std::uint64_t) {
    if (progress) progress(added + done, 2 * files.bytes);
  };
  auto status = VelmarArchive_create_begin(path, info);
  for (std::int32_t index = 0; status == ArchiveSuccess && index < info.fileCount; ++index) {
    const ArchiveFile& file = files.at(index);
    status = VelmarArchive_add(path, file, tell);
    added += static_cast<std::uint64_t>(std::max(file.size, 0));
  }
  if (status != ArchiveSuccess) return status;
  return VelmarArchive_create_end(path, [&](std::uint64_t done, std::uint64_t total) {
    if (progress) progress(total + done, 2 * total);
  });
}

ArchiveStatus CORVANE2Archive_Decompress(const char* path, const char* fileId, const char* outPath,
                                         ArchiveExtraction* extraction,
                                         const ArchiveProgress& progress) {
  const PackageText package(path, progress);
  if (package.status() != ArchiveSuccess) return package.status();
  FileRecord file;
  const auto status = VelmarArchive_parse_file(package.text(), fileId, file.get());
  if (status != ArchiveSuccess) return status;
  ArchiveStream output(outPath, "wb");
  if (!output) return ArchiveOutputNotCreated;
  const auto written = writeFile(file.get(), package.length(), output);
  if (extraction != nullptr) *extraction = written;
  return ArchiveSuccess;
}

ArchiveStatus CORVANE2Archive_Parse_Archive(const char* path, ArchiveInfo& info,
                                            const ArchiveVisitor& eachFile,
                                            const ArchiveProgress& progress) {
  const PackageText package(path, progress);
  if (package.status() != ArchiveSuccess) return package.status();
  const auto status = VelmarArchive_parse_archive(package.text(), info);
  if (status != ArchiveSuccess || !eachFile) return status;
  return tellEachFile(package.text(), eachFile);
}

ArchiveStatus CORVANE2Archive_Get_File_Version(const char* path, const char* fileId,
                                               std::span<char> versionOut,
                                               const ArchiveProgress& progress) {
  const PackageText package(path, progress);
  if (package.status() != ArchiveSuccess) return package.status();
  // The file itself is not wanted, and decoding it would take most of the time.
  ArchiveMember member;
  const auto status = findMember(package.text(), fileId, member);
  if (status != ArchiveSuccess || versionOut.empty()) return status;
  const auto length = member.version.copy(versionOut.data(), versionOut.size() - 1);
  versionOut[length] = '\0';
  return ArchiveSuccess;
}

}  // namespace corvane
