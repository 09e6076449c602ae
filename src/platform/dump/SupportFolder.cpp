#include "platform/dump/SupportFolder.h"

#include <fmt/format.h>

#include <fstream>
#include <system_error>
#include <utility>
#include <vector>

namespace corvane {

namespace {

namespace files = std::filesystem;

constexpr const char* dumpName = "ioreg.txt";
constexpr const char* profileName = "profiler.spx";

/// A profile is read as a whole tree; none that a Mac writes comes near this.
constexpr uintmax_t mostProfileBytes = 64u << 20;

/// The whole file in one piece of exactly its size; nothing when it cannot be read.
std::optional<std::string> readFile(const files::path& path) {
  std::error_code error;
  const uintmax_t size = files::file_size(path, error);
  std::ifstream stream(path, std::ios::binary);
  if (error || !stream) return std::nullopt;
  std::string bytes(size, '\0');
  stream.read(bytes.data(), static_cast<std::streamsize>(size));
  bytes.resize(static_cast<size_t>(stream.gcount()));
  return bytes;
}

SystemProfile readProfile(const files::path& path) {
  std::error_code error;
  const uintmax_t size = files::file_size(path, error);
  if (error || size > mostProfileBytes) return {};
  const std::optional<std::string> bytes = readFile(path);
  return bytes ? readSystemProfile(*bytes) : SystemProfile{};
}

std::vector<files::path> collectionsIn(const files::path& folder) {
  std::vector<files::path> found;
  std::error_code error;
  for (const auto& entry : files::directory_iterator(folder, error)) {
    if (files::is_regular_file(entry.path() / dumpName, error)) found.push_back(entry.path());
  }
  return found;
}

/// The folder with the dump: the one given or the only one inside.
std::optional<files::path> collectionAt(const files::path& folder, std::string& problem) {
  std::error_code error;
  if (files::is_regular_file(folder / dumpName, error)) return folder;
  const std::vector<files::path> inside = collectionsIn(folder);
  if (inside.size() == 1) return inside.front();
  problem = inside.empty()
                ? fmt::format("The folder holds no {}.", dumpName)
                : fmt::format("The folder holds {} collections; open one of them.", inside.size());
  return std::nullopt;
}

SupportReading readMaterial(const files::path& dumpFile) {
  std::error_code error;
  if (!files::is_regular_file(dumpFile, error)) return {std::nullopt, "There is no such file."};
  if (files::file_size(dumpFile, error) > mostDumpBytes) {
    return {std::nullopt, "It is larger than 4 GB."};
  }
  std::optional<std::string> bytes = readFile(dumpFile);
  if (!bytes) return {std::nullopt, "It cannot be read."};
  DumpReading reading = readRegistryDump(std::move(*bytes));
  if (!reading.dump) return {std::nullopt, std::move(reading.problem)};
  return {SupportMaterial{dumpFile, std::move(*reading.dump), {}}, {}};
}

}  // namespace

SupportReading openSupportMaterial(const files::path& path) {
  std::error_code error;
  if (!files::is_directory(path, error)) return readMaterial(path);
  std::string problem;
  const std::optional<files::path> folder = collectionAt(path, problem);
  if (!folder) return {std::nullopt, problem};
  SupportReading reading = readMaterial(*folder / dumpName);
  if (reading.material) reading.material->profile = readProfile(*folder / profileName);
  return reading;
}

}  // namespace corvane
