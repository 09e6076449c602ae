#pragma once

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>

namespace corvane::fuzz {

/// Ends the run with the place named, so that the fuzzer keeps the input.
inline void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "violated: %s\n", what);
  std::abort();
}

/// The part of `input` up to the first zero byte; `input` keeps what follows it.
inline std::string takeText(std::string_view& input) {
  const auto end = input.find('\0');
  const std::string text(input.substr(0, end));
  input.remove_prefix(end == std::string_view::npos ? input.size() : end + 1);
  return text;
}

/// A folder of this process's own, gone when it ends.
class ScratchFolder {
 public:
  ScratchFolder() {
    if (mkdtemp(path_.data()) == nullptr) std::abort();
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  const std::string& path() const { return path_; }

 private:
  std::string path_ = (std::filesystem::temp_directory_path() / "corvane-fuzz-XXXXXX").string();
};

/// The path of a file that the code under test reads or writes.
inline std::string scratchPath(const char* name) {
  static const ScratchFolder folder;
  return folder.path() + "/" + name;
}

inline void writeScratch(const std::string& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

inline std::string readScratch(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace corvane::fuzz
