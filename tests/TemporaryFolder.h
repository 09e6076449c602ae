#pragma once

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>

namespace corvane {

/// A fresh folder of the test's own, which goes with the object, and all that is in it.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    if (mkdtemp(path_.data()) == nullptr) throw std::runtime_error("no folder " + path_);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  std::filesystem::path path() const { return path_; }

  /// The path of the file of that name in the folder.
  std::string file(const std::string& name) const { return path_ + "/" + name; }

 private:
  std::string path_ = (std::filesystem::temp_directory_path() / "corvane-test-XXXXXX").string();
};

}  // namespace corvane
