#include "changes/History.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>
#include <system_error>
#include <thread>
#include <utility>

namespace corvane {

namespace {

using nlohmann::ordered_json;

constexpr mode_t ownerOnly = S_IRUSR | S_IWUSR;
constexpr std::chrono::seconds lockLimit{5};
constexpr std::chrono::milliseconds lockInterval{2};

/// A descriptor that is closed, and so unlocked, with the object.
class OpenFile {
 public:
  explicit OpenFile(int descriptor) : descriptor_(descriptor) {}
  OpenFile(OpenFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  OpenFile& operator=(OpenFile&&) = delete;
  ~OpenFile() {
    if (descriptor_ >= 0) close(descriptor_);
  }

  bool isOpen() const { return descriptor_ >= 0; }
  int descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

OpenFile openFile(const std::string& path, int flags) {
  return OpenFile(open(path.c_str(), flags | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, ownerOnly));
}

size_t sizeOf(int descriptor) {
  struct stat status {};
  return fstat(descriptor, &status) == 0 ? static_cast<size_t>(status.st_size) : 0;
}

/// Whether the path still leads to the file that was opened: another program may have put a
/// shortened one in its place.
bool leadsTo(const std::string& path, int descriptor) {
  struct stat opened {};
  struct stat found {};
  return fstat(descriptor, &opened) == 0 && lstat(path.c_str(), &found) == 0 &&
         S_ISREG(opened.st_mode) && opened.st_ino == found.st_ino && opened.st_dev == found.st_dev;
}

/// The file, made when there is none, locked; not open when it cannot be had in time.
OpenFile openLocked(const std::string& path) {
  const auto deadline = std::chrono::steady_clock::now() + lockLimit;
  do {
    OpenFile file = openFile(path, O_RDWR | O_CREAT | O_APPEND);
    if (!file.isOpen()) return file;
    if (flock(file.descriptor(), LOCK_EX | LOCK_NB) == 0) {
      if (leadsTo(path, file.descriptor())) return file;
    } else {
      std::this_thread::sleep_for(lockInterval);
    }
  } while (std::chrono::steady_clock::now() < deadline);
  return OpenFile(-1);
}

std::string contentFrom(int descriptor, size_t start) {
  std::string content;
  std::array<char, 65536> piece{};
  while (true) {
    const ssize_t count =
        pread(descriptor, piece.data(), piece.size(), static_cast<off_t>(start + content.size()));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return content;
    content.append(piece.data(), static_cast<size_t>(count));
  }
}

bool writeWhole(int descriptor, const std::string& text) {
  return write(descriptor, text.data(), text.size()) == static_cast<ssize_t>(text.size());
}

/// The last `limit` bytes at most.
std::string endOf(int descriptor, size_t limit) {
  const size_t size = sizeOf(descriptor);
  return contentFrom(descriptor, size > limit ? size - limit : 0);
}

/// Puts the newer lines in the file's place. A program that is killed meanwhile leaves the whole
/// file where it was.
bool shorten(const std::string& path, int descriptor, size_t limit) {
  std::string newer = endOf(descriptor, limit);
  newer.erase(0, newer.find('\n') == std::string::npos ? newer.size() : newer.find('\n') + 1);
  const std::string draft = path + ".new";
  const OpenFile file = openFile(draft, O_WRONLY | O_CREAT | O_TRUNC);
  return file.isOpen() && writeWhole(file.descriptor(), newer) && fsync(file.descriptor()) == 0 &&
         rename(draft.c_str(), path.c_str()) == 0;
}

std::string presentTime() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  gmtime_r(&now, &parts);
  std::array<char, 32> text{};
  std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &parts);
  return text.data();
}

std::string cut(const std::string& text) {
  return text.substr(0, History::textLimit);
}

template <typename Value>
ordered_json orNull(const std::optional<Value>& value) {
  return value ? ordered_json(*value) : ordered_json(nullptr);
}

std::optional<std::string> cut(const std::optional<std::string>& text) {
  return text ? std::optional(cut(*text)) : std::nullopt;
}

std::string lineOf(const HistoryEntry& entry) {
  const ordered_json fields = {{"time", entry.time.empty() ? presentTime() : cut(entry.time)},
                               {"what", cut(entry.what)},
                               {"label", cut(entry.label)},
                               {"WWN", cut(entry.WWN)},
                               {"port", orNull(entry.port)},
                               {"from", orNull(cut(entry.from))},
                               {"to", orNull(cut(entry.to))},
                               {"outcome", cut(entry.outcome)}};
  return fields.dump(-1, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}

std::optional<std::string> textIn(const ordered_json& fields, const char* key) {
  const auto found = fields.find(key);
  if (found == fields.end() || !found->is_string()) return std::nullopt;
  return found->get<std::string>();
}

std::optional<HistoryEntry> entryIn(const std::string& line) {
  const ordered_json fields = ordered_json::parse(line, nullptr, false);
  if (!fields.is_object() || !textIn(fields, "time") || !textIn(fields, "what")) {
    return std::nullopt;
  }
  HistoryEntry entry;
  entry.time = *textIn(fields, "time");
  entry.what = *textIn(fields, "what");
  entry.label = textIn(fields, "label").value_or("");
  entry.WWN = textIn(fields, "WWN").value_or("");
  const auto port = fields.find("port");
  if (port != fields.end() && port->is_number_integer()) entry.port = port->get<int64_t>();
  entry.from = textIn(fields, "from");
  entry.to = textIn(fields, "to");
  entry.outcome = textIn(fields, "outcome").value_or("");
  return entry;
}

}  // namespace

History::History(const Paths& paths) : History(applicationSupport(paths) + "/history") {}

History::History(std::string path, size_t sizeLimit)
    : path_(std::move(path)), sizeLimit_(sizeLimit) {}

bool History::append(const HistoryEntry& entry) const {
  std::string line = lineOf(entry);
  std::error_code error;
  std::filesystem::create_directories(std::filesystem::path(path_).parent_path(), error);
  const OpenFile file = openLocked(path_);
  if (!file.isOpen()) return false;
  const size_t size = sizeOf(file.descriptor());
  if (size > 0 && size + line.size() > sizeLimit_) {
    return shorten(path_, file.descriptor(), std::min(size, sizeLimit_) / 2) && append(entry);
  }
  const bool followsTornLine = size > 0 && contentFrom(file.descriptor(), size - 1) != "\n";
  if (followsTornLine) line.insert(0, "\n");
  return writeWhole(file.descriptor(), line) && fsync(file.descriptor()) == 0;
}

std::vector<HistoryEntry> History::entries() const {
  const OpenFile file = openFile(path_, O_RDONLY);
  if (!file.isOpen()) return {};
  std::vector<HistoryEntry> found;
  std::istringstream lines(endOf(file.descriptor(), sizeLimit_));
  for (std::string line; std::getline(lines, line);) {
    if (auto entry = entryIn(line)) found.push_back(std::move(*entry));
  }
  return found;
}

}  // namespace corvane
