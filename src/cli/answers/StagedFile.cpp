#include "cli/answers/StagedFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace corvane {

namespace {

namespace fs = std::filesystem;

constexpr int mostAttempts = 100;

fs::path stagingName(const fs::path& destination, int attempt) {
  const auto suffix = ".partial-" + std::to_string(getpid()) + "-" + std::to_string(attempt);
  return destination.parent_path() / ("." + destination.filename().string() + suffix);
}

/// Creates a file that was not there; a link planted under its name is not followed.
std::string createBeside(const fs::path& destination) {
  for (int attempt = 0; attempt < mostAttempts; ++attempt) {
    auto name = stagingName(destination, attempt).string();
    const int file = open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
    if (file >= 0) {
      close(file);
      return name;
    }
    if (errno != EEXIST) break;
  }
  throw std::system_error(errno, std::generic_category(), "cannot create a file beside it");
}

}  // namespace

StagedFile::StagedFile(const fs::path& destination)
    : destination_(fs::weakly_canonical(destination)) {
  if (fs::exists(destination_) && !fs::is_regular_file(destination_)) {
    staging_ = destination_.string();
    return;
  }
  interruption_.emplace();
  staging_ = createBeside(destination_);
  pending_ = true;
}

StagedFile::~StagedFile() {
  std::error_code ignored;
  if (pending_) fs::remove(staging_, ignored);
}

void StagedFile::commit() {
  if (!pending_) return;
  if (fs::exists(destination_)) {
    fs::permissions(staging_, fs::status(destination_).permissions());
  }
  fs::rename(staging_, destination_);
  pending_ = false;
}

}  // namespace corvane
