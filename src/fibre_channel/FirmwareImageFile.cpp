#include "fibre_channel/FirmwareImageFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace corvane {

namespace {

bool isOwnPlainFile(int descriptor) {
  struct stat status {};
  return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == geteuid();
}

/// A fresh folder that only the running user can enter, removed with all it holds.
class PrivateFolder {
 public:
  explicit PrivateFolder(const std::filesystem::path& parent)
      : path_((parent / "corvane-XXXXXX").string()) {
    if (!mkdtemp(path_.data())) path_.clear();
  }
  PrivateFolder(const PrivateFolder&) = delete;
  PrivateFolder& operator=(const PrivateFolder&) = delete;
  ~PrivateFolder() {
    std::error_code ignored;
    if (*this) std::filesystem::remove_all(path_, ignored);
  }

  explicit operator bool() const { return !path_.empty(); }
  std::string file(const char* name) const { return path_ + "/" + name; }

 private:
  std::string path_;  ///< empty when it could not be made
};

ImageExtraction extractInto(const std::string& packagePath, const std::string& freshPath,
                            const ArchiveProgress& progress) {
  ArchiveExtraction bytes;
  ImageExtraction extraction;
  extraction.status = CORVANE2Archive_Decompress(packagePath.c_str(), firmwareImageMember,
                                                 freshPath.c_str(), &bytes, progress);
  const auto claimed = static_cast<uint64_t>(bytes.claimed);
  extraction.complete = extraction.status == ArchiveSuccess && bytes.claimed >= 0 &&
                        bytes.decoded == claimed && bytes.written == claimed;
  return extraction;
}

bool is7Bit(const std::string& path) {
  return std::all_of(path.begin(), path.end(),
                     [](char character) { return static_cast<unsigned char>(character) < 0x80; });
}

bool isOfVersion(const std::string& packagePath, const std::string& version) {
  const PackageVerification verification = verifyFirmwarePackage(packagePath);
  return verification.succeeded() && verification.version == version;
}

// A file that is not there counts as empty; opening it then fails.
uintmax_t fileSize(const std::string& path) {
  std::error_code error;
  const uintmax_t size = std::filesystem::file_size(path, error);
  return error ? 0 : size;
}

}  // namespace

OpenFile openFirmwareImage(const std::string& path) {
  // Without O_NONBLOCK a pipe at that place would hold up the caller for good.
  const int descriptor = open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (descriptor < 0) return nullptr;
  std::FILE* file = isOwnPlainFile(descriptor) ? fdopen(descriptor, "rb") : nullptr;
  if (!file) close(descriptor);
  return OpenFile(file);
}

PackageVerification verifyFirmwarePackage(const std::string& packagePath) {
  using Result = PackageVerification::Result;
  if (!is7Bit(packagePath)) return {Result::PathNot7Bit, ArchiveSuccess, ""};
  if (fileSize(packagePath) >= firmwarePackageSizeLimit) {
    return {Result::TooLarge, ArchiveSuccess, ""};
  }
  std::array<char, archiveVersionCapacity> version{};
  const ArchiveStatus status =
      CORVANE2Archive_Get_File_Version(packagePath.c_str(), firmwareImageMember, version);
  if (status != ArchiveSuccess) return {Result::Refused, status, ""};
  return {Result::Verified, ArchiveSuccess, version.data()};
}

ImageExtraction extractFirmwareImage(const std::string& packagePath, const std::string& imagePath,
                                     const ArchiveProgress& progress,
                                     const std::optional<std::string>& expectedVersion) {
  removeFirmwareImage(imagePath);
  const PrivateFolder folder(std::filesystem::path(imagePath).parent_path());
  if (!folder) return {ArchiveOutputNotCreated, false};
  const std::string freshPath = folder.file(firmwareImageMember);
  ImageExtraction extraction = extractInto(packagePath, freshPath, progress);
  if (!extraction.complete) return extraction;
  if (expectedVersion && !isOfVersion(packagePath, *expectedVersion)) {
    return {ArchiveSuccess, false, true};
  }
  if (std::rename(freshPath.c_str(), imagePath.c_str()) != 0) {
    return {ArchiveOutputNotCreated, false};
  }
  return extraction;
}

void removeFirmwareImage(const std::string& imagePath) {
  unlink(imagePath.c_str());
}

}  // namespace corvane
