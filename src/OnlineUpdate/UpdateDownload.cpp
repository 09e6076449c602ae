#include "OnlineUpdate/UpdateDownload.h"

#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <span>
#include <string_view>
#include <utility>

namespace corvane {

namespace {

constexpr uint64_t packageSizeLimit = uint64_t{1} << 31;
constexpr size_t longestFileName = 200;

constexpr int64_t transferFailed = 1;
constexpr int64_t libraryFailed = 2;

struct CloseStream {
  void operator()(std::FILE* stream) const { std::fclose(stream); }
};
using Stream = std::unique_ptr<std::FILE, CloseStream>;

/// A fresh file that takes the place of another one when it is whole, and else vanishes.
class StagedFile {
 public:
  explicit StagedFile(std::string destination)
      : destination_(std::move(destination)),
        path_((std::filesystem::path(destination_).parent_path() / "corvane-XXXXXX").string()) {
    const int descriptor = mkstemp(path_.data());
    if (descriptor < 0) return;
    isThere_ = true;
    stream_.reset(fdopen(descriptor, "wb"));
    if (!stream_) close(descriptor);
  }
  StagedFile(const StagedFile&) = delete;
  StagedFile& operator=(const StagedFile&) = delete;
  ~StagedFile() {
    if (isThere_) unlink(path_.c_str());
  }

  /// Null when the file could not be made.
  std::FILE* stream() const { return stream_.get(); }

  /// False, with errno set, when not every byte reached the file or the place is taken.
  bool moveIntoPlace() {
    if (!stream_ || std::fclose(stream_.release()) != 0) return false;
    if (std::rename(path_.c_str(), destination_.c_str()) != 0) return false;
    isThere_ = false;
    return true;
  }

 private:
  const std::string destination_;
  std::string path_;
  bool isThere_ = false;
  Stream stream_;
};

/// A stream into memory.
class MemoryFile {
 public:
  MemoryFile() : stream_(open_memstream(&bytes_, &size_)) {}
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;
  ~MemoryFile() {
    stream_.reset();
    std::free(bytes_);
  }

  std::FILE* stream() const { return stream_.get(); }

  std::span<const uint8_t> bytes() {
    if (!stream_ || std::fflush(stream_.get()) != 0) return {};
    return {reinterpret_cast<const uint8_t*>(bytes_), size_};
  }

 private:
  char* bytes_ = nullptr;
  size_t size_ = 0;
  Stream stream_;
};

bool isPlainCharacter(char character) {
  constexpr std::string_view plain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789._-+";
  return plain.find(character) != std::string_view::npos;
}

std::string failureOf(const TransferHandle& handle) {
  const std::string text = handle.failureText();
  return text.empty() ? "the transfer failed" : text;
}

/// Whether the name is that of the file at `path` on a file system that does not tell capitals
/// from small letters.
bool namesFile(const std::string& name, const std::string& path) {
  const std::string reserved = std::filesystem::path(path).filename().string();
  return std::equal(name.begin(), name.end(), reserved.begin(), reserved.end(),
                    [](unsigned char one, unsigned char other) {
                      return std::tolower(one) == std::tolower(other);
                    });
}

}  // namespace

size_t write_data(const void* buffer, size_t size, size_t count, std::FILE* stream) {
  return stream == nullptr ? 0 : std::fwrite(buffer, size, count, stream);
}

std::string updateFileNameProblem(const std::string& name, const Paths& paths) {
  if (name.empty()) return "the catalogue names no file";
  if (name.size() > longestFileName) return "the catalogue's file name is too long";
  if (name.front() == '-') return "the catalogue's file name begins with \"-\"";
  if (name == "." || name.find("..") != std::string::npos) {
    return "the catalogue's file name would leave its folder";
  }
  if (!std::all_of(name.begin(), name.end(), isPlainCharacter)) {
    return "the catalogue's file name has characters other than letters, digits, \".\", \"_\", "
           "\"-\" and \"+\"";
  }
  if (namesFile(name, paths.transferImage) || namesFile(name, paths.scratchFile)) {
    return "the catalogue's file name is kept for a file of the utility's own";
  }
  return {};
}

UpdateDownload downloadUpdateFile(const Platform& platform, const std::string& url,
                                  const std::string& path, TransferProgress progress) {
  const auto handle = platform.transfer.createHandle();
  if (!handle) return {libraryFailed, "the transfer library could not be initialised"};
  StagedFile file(path);
  handle->setUrl(url);
  handle->setDestination(path);
  handle->setWrite(write_data, file.stream());
  handle->setMaximumSize(packageSizeLimit);
  handle->setProgress(std::move(progress));
  if (handle->perform() != 0) return {transferFailed, failureOf(*handle)};
  if (!file.moveIntoPlace()) return {transferFailed, std::strerror(errno)};
  return {};
}

CatalogueReading fetchCatalogue(const Platform& platform, const std::string& url,
                                TransferProgress progress) {
  const auto handle = platform.transfer.createHandle();
  if (!handle) return {std::nullopt, "the transfer library could not be initialised"};
  MemoryFile file;
  handle->setUrl(url);
  handle->setWrite(write_data, file.stream());
  handle->setMaximumSize(catalogueSizeLimit);
  handle->setTimeLimit(catalogueTimeLimit);
  handle->setProgress(std::move(progress));
  if (handle->perform() != 0) return {std::nullopt, failureOf(*handle)};
  return readCatalogue(file.bytes());
}

}  // namespace corvane
