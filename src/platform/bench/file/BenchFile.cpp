#include "platform/bench/file/BenchFile.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "platform/bench/file/BenchConsistency.h"
#include "platform/bench/file/BenchDocument.h"
#include "platform/bench/file/BenchSchema.h"
#include "platform/bench/file/JsonLines.h"

namespace corvane {

namespace {

using Kind = BenchFileError::Kind;

/// Far above the largest bench; keeps a wrong file from being read into memory whole.
constexpr size_t largestFile = size_t{16} * 1024 * 1024;

std::string errorLine(const std::string& path, size_t line, const std::string& field,
                      const std::string& reason) {
  std::string text = path;
  if (line > 0) text += fmt::format(":{}", line);
  if (!field.empty()) text += ": " + field;
  return text + ": " + reason;
}

[[noreturn]] void refuseUnreadable(const std::string& path, const std::string& action) {
  const int error = errno;
  const Kind kind = error == ENOENT ? Kind::Missing : Kind::Unreadable;
  throw BenchFileError(kind, path, 0, "", fmt::format("{}: {}", action, std::strerror(error)));
}

/// Locking would leave a lock file behind where there is no bench.
void requireFile(const std::string& path) {
  if (::access(path.c_str(), F_OK) != 0) refuseUnreadable(path, "it cannot be opened");
}

class FileDescriptor {
 public:
  explicit FileDescriptor(int descriptor) : descriptor_(descriptor) {}
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  ~FileDescriptor() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }

  int get() const { return descriptor_; }
  bool isOpen() const { return descriptor_ >= 0; }

 private:
  int descriptor_;
};

/// Holds the lock of a bench file as long as it lives. The lock is a file of its own, since the
/// bench file itself is replaced by every change.
class FileLock {
 public:
  explicit FileLock(const std::string& benchPath)
      : descriptor_(::open((benchPath + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW,
                           0644)) {
    if (!descriptor_.isOpen()) refuseUnreadable(benchPath, "its lock file cannot be opened");
    while (::flock(descriptor_.get(), LOCK_EX) != 0) {
      if (errno != EINTR) refuseUnreadable(benchPath, "it cannot be locked");
    }
  }

 private:
  FileDescriptor descriptor_;
};

std::string readFile(const std::string& path) {
  const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (!file.isOpen()) refuseUnreadable(path, "it cannot be opened");
  std::string text;
  char buffer[65536];
  for (;;) {
    const ssize_t count = ::read(file.get(), buffer, sizeof buffer);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) refuseUnreadable(path, "it cannot be read");
    if (count == 0) return text;
    text.append(buffer, static_cast<size_t>(count));
    if (text.size() > largestFile) {
      throw BenchFileError(Kind::Misfit, path, 0, "", "it is too large to be a bench");
    }
  }
}

bool writeAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = ::write(descriptor, text.data(), text.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    text.remove_prefix(static_cast<size_t>(count));
  }
  return true;
}

void syncFolderOf(const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  const FileDescriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (descriptor.isOpen()) ::fsync(descriptor.get());
}

/// Writes aside, brings to disk and renames. Call it with the lock held.
void replaceFile(const std::string& path, const std::string& text) {
  const std::string aside = path + ".new";
  {
    const FileDescriptor file(
        ::open(aside.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0644));
    if (!file.isOpen()) refuseUnreadable(aside, "it cannot be written");
    if (!writeAll(file.get(), text) || ::fsync(file.get()) != 0) {
      refuseUnreadable(aside, "it cannot be written");
    }
  }
  if (::rename(aside.c_str(), path.c_str()) != 0) refuseUnreadable(path, "it cannot be replaced");
  syncFolderOf(path);
}

/// `value` as JSON, or as a text when it is not JSON.
BenchDocument valueOf(const std::string& value) {
  BenchDocument parsed = BenchDocument::parse(value, nullptr, false);
  return parsed.is_discarded() ? BenchDocument(value) : parsed;
}

/// Puts a value into the document, making the objects on the way that are not there yet.
void assign(BenchDocument& document, const std::string& pointer, BenchDocument value,
            const std::string& path) {
  try {
    document[BenchDocument::json_pointer(pointer)] = std::move(value);
  } catch (const BenchDocument::exception& error) {
    throw BenchFileError(Kind::Misfit, path, 0, pointer,
                         fmt::format("is no place in the bench ({})", error.what()));
  }
}

BenchDocument parsedJson(std::string_view text, const std::string& path) {
  const auto refuse = [&](size_t line, const std::exception& error) -> BenchFileError {
    return {Kind::Misfit, path, line, "", fmt::format("is no JSON ({})", error.what())};
  };
  try {
    return BenchDocument::parse(text.begin(), text.end());
  } catch (const BenchDocument::parse_error& error) {
    const std::string_view before = text.substr(0, error.byte > 0 ? error.byte - 1 : 0);
    throw refuse(1 + static_cast<size_t>(std::count(before.begin(), before.end(), '\n')), error);
  } catch (const BenchDocument::exception& error) {
    throw refuse(0, error);
  }
}

/// Checks a text before it is written. Its lines are not those of the file, so none is named.
void refuseMisfit(const std::string& text, const std::string& path) {
  try {
    parseBench(text, path);
  } catch (const BenchFileError& error) {
    throw BenchFileError(error.kind(), path, 0, error.field(), error.reason());
  }
}

/// The bench with that value in that place, as text.
std::string textWith(BenchDocument document, const std::string& pointer, BenchDocument value,
                     const std::string& path) {
  assign(document, pointer, std::move(value), path);
  std::string written = benchDocumentText(document);
  refuseMisfit(written, path);
  return written;
}

/// The same with a value from a command line. A release such as 12.6 is a number as JSON, but
/// stands where only a text fits.
std::string textWithEither(const BenchDocument& document, const std::string& pointer,
                           const std::string& value, const std::string& path) {
  const BenchDocument json = valueOf(value);
  try {
    return textWith(document, pointer, json, path);
  } catch (const BenchFileError&) {
    if (json.is_string()) throw;
    try {
      return textWith(document, pointer, value, path);
    } catch (const BenchFileError&) {
      // What is wrong with the value is told of the one that was meant.
    }
    throw;
  }
}

std::string absolutePath(const std::string& path) {
  std::error_code error;
  const auto canonical = std::filesystem::weakly_canonical(std::filesystem::absolute(path), error);
  return error ? path : canonical.string();
}

}  // namespace

BenchFileError::BenchFileError(Kind kind, const std::string& path, size_t line,
                               const std::string& field, const std::string& reason)
    : std::runtime_error(errorLine(path, line, field, reason)),
      kind_(kind),
      line_(line),
      field_(field),
      reason_(reason) {}

BenchFile::BenchFile(const std::string& path) : path_(absolutePath(path)) {}

std::string BenchFile::folder() const {
  return std::filesystem::path(path_).replace_extension(".files").string();
}

BenchState BenchFile::load() const {
  return parseBench(readFile(path_), path_);
}

void BenchFile::update(const std::function<void(BenchState&)>& change) const {
  requireFile(path_);
  const FileLock lock(path_);
  const BenchState before = load();
  BenchState after = before;
  change(after);
  if (after == before) return;
  const std::string written = benchText(after);
  refuseMisfit(written, path_);
  replaceFile(path_, written);
}

void BenchFile::set(const std::string& pointer, const std::string& value) const {
  requireFile(path_);
  const FileLock lock(path_);
  const BenchDocument document = parseBenchDocument(readFile(path_), path_);
  replaceFile(path_, textWithEither(document, pointer, value, path_));
}

void BenchFile::create(const BenchState& state) const {
  const FileLock lock(path_);
  const std::string written = benchText(state);
  refuseMisfit(written, path_);
  if (std::filesystem::exists(std::filesystem::symlink_status(path_))) {
    throw BenchFileError(Kind::Unreadable, path_, 0, "", "is there already");
  }
  replaceFile(path_, written);
}

std::string BenchFile::text() const {
  return readFile(path_);
}

BenchDocument parseBenchDocument(std::string_view text, const std::string& path) {
  BenchDocument document = parsedJson(text, path);
  std::optional<SchemaBreach> breach = findSchemaBreach(benchSchema(), document);
  if (!breach) {
    if (const auto repeated = findRepeatedJsonKey(text)) {
      breach = SchemaBreach{*repeated, "stands twice"};
    }
  }
  if (!breach) breach = findContradiction(benchStateOf(document));
  if (!breach) return document;
  throw BenchFileError(Kind::Misfit, path, lineOfJsonValue(text, breach->pointer), breach->pointer,
                       breach->reason);
}

BenchState parseBench(std::string_view text, const std::string& path) {
  return benchStateOf(parseBenchDocument(text, path));
}

std::string benchText(const BenchState& state) {
  return benchDocumentText(benchDocumentOf(state));
}

}  // namespace corvane
