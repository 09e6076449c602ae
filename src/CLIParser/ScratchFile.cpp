#include "CLIParser/ScratchFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace corvane {

namespace {

constexpr mode_t ownerOnly = S_IRUSR | S_IWUSR;

/// O_NONBLOCK because a pipe put in the file's place must not hold the utility up.
int openWithoutFollowing(const std::string& path, int flags) {
  return open(path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK | flags,
              ownerOnly);
}

/// Whether it is a file of this user's that no other path leads to.
bool isOwnFile(int descriptor) {
  struct stat status {};
  return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == geteuid() &&
         status.st_nlink == 1;
}

bool lockAndEmpty(int descriptor) {
  int locked = 0;
  do {
    locked = flock(descriptor, LOCK_EX);
  } while (locked != 0 && errno == EINTR);
  return locked == 0 && fchmod(descriptor, ownerOnly) == 0 && ftruncate(descriptor, 0) == 0;
}

int closed(int descriptor) {
  if (descriptor >= 0) close(descriptor);
  return -1;
}

/// A device is nobody's leavings: taking it away would harm the whole computer.
bool isDevice(const std::string& path) {
  struct stat status {};
  return lstat(path.c_str(), &status) == 0 && (S_ISCHR(status.st_mode) || S_ISBLK(status.st_mode));
}

int openOwnFile(const std::string& path) {
  if (isDevice(path)) return -1;
  const int descriptor = openWithoutFollowing(path, 0);
  if (descriptor >= 0 && isOwnFile(descriptor)) return descriptor;
  closed(descriptor);
  unlink(path.c_str());
  return openWithoutFollowing(path, O_EXCL);
}

int openScratchFile(const std::string& path) {
  const int descriptor = openOwnFile(path);
  return descriptor >= 0 && lockAndEmpty(descriptor) ? descriptor : closed(descriptor);
}

}  // namespace

ScratchFile::ScratchFile(const std::string& path) : descriptor_(openScratchFile(path)) {}

ScratchFile::~ScratchFile() {
  closed(descriptor_);
}

std::optional<std::string> ScratchFile::contents() const {
  std::string text;
  std::array<char, 4096> block{};
  while (text.size() < scratchFileLimit) {
    const ssize_t count =
        pread(descriptor_, block.data(), block.size(), static_cast<off_t>(text.size()));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    if (count == 0) break;
    text.append(block.data(), static_cast<size_t>(count));
  }
  return text;
}

}  // namespace corvane
