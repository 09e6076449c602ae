#include "CLIParser/ScratchFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <thread>

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

constexpr std::chrono::milliseconds lockInterval{5};

/// Takes the file's lock, trying again until the time is up: flock alone would wait for ever.
bool lockWithin(int descriptor, std::chrono::milliseconds limit) {
  const auto deadline = std::chrono::steady_clock::now() + limit;
  while (flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
    if (errno != EWOULDBLOCK && errno != EINTR) return false;
    if (std::chrono::steady_clock::now() >= deadline) {
      errno = EWOULDBLOCK;
      return false;
    }
    std::this_thread::sleep_for(lockInterval);
  }
  return true;
}

bool empty(int descriptor) {
  return fchmod(descriptor, ownerOnly) == 0 && ftruncate(descriptor, 0) == 0;
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

}  // namespace

ScratchFile::ScratchFile(const std::string& path, std::chrono::milliseconds waitLimit)
    : descriptor_(openOwnFile(path)) {
  if (descriptor_ < 0) return;
  const bool locked = lockWithin(descriptor_, waitLimit);
  busy_ = !locked && errno == EWOULDBLOCK;
  if (!locked || !empty(descriptor_)) descriptor_ = closed(descriptor_);
}

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
