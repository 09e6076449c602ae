#include "platform/bench/file/BenchFolder.h"

#include <fstream>
#include <system_error>

#include <filesystem>

namespace corvane {

namespace {

namespace filesystem = std::filesystem;

constexpr const char* folders[] = {"private/tmp",
                                   "Users/user/Desktop",
                                   "usr/local/bin",
                                   "var/log",
                                   "Library/Extensions",
                                   "Library/Preferences",
                                   "System/Library/Extensions"};

[[noreturn]] void refuse(const std::string& path, const std::error_code& error) {
  throw BenchFileError(
      BenchFileError::Kind::Unreadable, path, 0, "",
      "\"" + path + "\", where its files are kept, cannot be made: " + error.message());
}

void placeLink(const std::string& path, const std::string& target) {
  std::error_code error;
  if (filesystem::read_symlink(path, error) == target) return;
  filesystem::remove(path, error);
  filesystem::create_symlink(target, path, error);
  // Another program on the same bench may have been quicker.
  if (error && error != std::errc::file_exists) refuse(path, error);
}

}  // namespace

BenchFolder::BenchFolder(const BenchFile& file) : root_(file.folder()) {}

void BenchFolder::create() const {
  for (const char* folder : folders) {
    const std::string path = root_ + "/" + folder;
    std::error_code error;
    filesystem::create_directories(path, error);
    if (error) refuse(path, error);
  }
  placeLink(root_ + "/tmp", "private/tmp");
  const std::string systemLog = paths().systemLog;
  std::ofstream(systemLog, std::ios::app);
}

Paths BenchFolder::paths() const {
  Paths paths;
  paths.utilityTool = toolsFolder() + "/corvaneutil";
  paths.scratchFile = root_ + "/private/tmp/corvaneOutput.txt";
  paths.downloadFolder = root_ + "/private/tmp";
  paths.extractedImage = root_ + "/tmp/emulex.grp";
  paths.transferImage = root_ + "/private/tmp/emulex.grp";
  paths.systemLog = root_ + "/var/log/system.log";
  paths.systemExtensions = root_ + "/System/Library/Extensions/";
  paths.localExtensions = root_ + "/Library/Extensions/";
  paths.home = root_ + "/Users/user";
  return paths;
}

std::string BenchFolder::toolsFolder() const {
  return root_ + "/usr/local/bin";
}

void BenchFolder::placeTool(const std::string& name, const std::string& target) const {
  const std::string path = toolsFolder() + "/" + name;
  if (!target.empty()) return placeLink(path, target);
  std::error_code error;
  filesystem::remove(path, error);
}

void BenchFolder::blockScratchFile(bool isBlocked) const {
  const std::string path = paths().scratchFile;
  const bool isFolder = filesystem::is_directory(path);
  if (isFolder == isBlocked) return;
  std::error_code error;
  filesystem::remove(path, error);
  if (isBlocked) filesystem::create_directory(path, error);
  if (error) refuse(path, error);
}

}  // namespace corvane
