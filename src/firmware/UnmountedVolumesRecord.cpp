#include "firmware/UnmountedVolumesRecord.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <sstream>
#include <string_view>
#include <system_error>
#include <utility>

namespace corvane {

namespace {

constexpr mode_t ownerOnly = 0600;

// Whether the file that was locked is still the one that the path leads to: another program may
// have removed it between opening and locking.
bool isStillInPlace(int descriptor, const std::string& path) {
  struct stat opened {};
  struct stat found {};
  return fstat(descriptor, &opened) == 0 && lstat(path.c_str(), &found) == 0 &&
         opened.st_ino == found.st_ino && opened.st_dev == found.st_dev;
}

int openLocked(const std::string& path, int flags) {
  const int descriptor = open(path.c_str(), flags | O_RDWR | O_NOFOLLOW | O_CLOEXEC, ownerOnly);
  if (descriptor < 0) return -1;
  if (flock(descriptor, LOCK_EX | LOCK_NB) == 0 && isStillInPlace(descriptor, path)) {
    return descriptor;
  }
  close(descriptor);
  return -1;
}

std::string contentOf(int descriptor) {
  std::string content;
  std::array<char, 4096> piece{};
  for (ssize_t count = 0; (count = read(descriptor, piece.data(), piece.size())) > 0;) {
    content.append(piece.data(), static_cast<size_t>(count));
  }
  return content;
}

// The program may be killed between any two calls, so the new names are in place, with empty lines
// behind them, before the rest of the former ones is cut off.
bool replaceContent(int descriptor, std::string content) {
  struct stat status {};
  if (fstat(descriptor, &status) != 0) return false;
  const size_t length = content.size();
  content.resize(std::max(length, static_cast<size_t>(status.st_size)), '\n');
  return pwrite(descriptor, content.data(), content.size(), 0) ==
             static_cast<ssize_t>(content.size()) &&
         ftruncate(descriptor, static_cast<off_t>(length)) == 0;
}

std::vector<std::string> lines(const std::string& content) {
  std::vector<std::string> result;
  std::istringstream stream(content);
  for (std::string line; std::getline(stream, line);) {
    if (!line.empty()) result.push_back(line);
  }
  return result;
}

}  // namespace

UnmountedVolumesRecord::UnmountedVolumesRecord(std::string path) : path_(std::move(path)) {}

// A record that still names volumes stays behind on purpose: the next start tells of them.
UnmountedVolumesRecord::~UnmountedVolumesRecord() {
  if (descriptor_ >= 0) close(descriptor_);
}

bool UnmountedVolumesRecord::add(const std::vector<std::string>& names) {
  const std::lock_guard guard(mutex_);
  names_.insert(names.begin(), names.end());
  return names_.empty() || (lock() && save() && fsync(descriptor_) == 0);
}

void UnmountedVolumesRecord::remove(const std::vector<std::string>& names) {
  const std::lock_guard guard(mutex_);
  for (const std::string& name : names) names_.erase(name);
  if (descriptor_ < 0) return;
  if (!names_.empty() || !foundNames_.empty()) save();
  if (names_.empty()) release();
}

std::vector<std::string> UnmountedVolumesRecord::takeLeftBehind() {
  const std::lock_guard guard(mutex_);
  if (descriptor_ >= 0) return {};
  descriptor_ = openLocked(path_, 0);
  if (descriptor_ < 0) return {};
  std::vector<std::string> names = lines(contentOf(descriptor_));
  release();
  return names;
}

bool UnmountedVolumesRecord::lock() {
  if (descriptor_ >= 0) return true;
  std::error_code error;
  std::filesystem::create_directories(std::filesystem::path(path_).parent_path(), error);
  descriptor_ = openLocked(path_, O_CREAT);
  if (descriptor_ >= 0) foundNames_ = lines(contentOf(descriptor_));
  return descriptor_ >= 0;
}

bool UnmountedVolumesRecord::save() {
  std::string content;
  for (const std::string& name : foundNames_) content += name + '\n';
  for (const std::string& name : names_) content += name + '\n';
  return replaceContent(descriptor_, content);
}

void UnmountedVolumesRecord::release() {
  if (foundNames_.empty()) unlink(path_.c_str());
  foundNames_.clear();
  close(std::exchange(descriptor_, -1));
}

}  // namespace corvane
