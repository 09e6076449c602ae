#include "cli/bench-tools/SystemLogArchive.h"

#include <fmt/format.h>

#include <filesystem>
#include <fstream>

#include "cli/bench-tools/PropertyList.h"

namespace corvane {

namespace {

/// EX_USAGE and EX_CANTCREAT of sysexits.h.
constexpr int usageStatus = 64;
constexpr int cannotCreateStatus = 73;

bool writeArchive(const std::filesystem::path& archive, const BenchState& state) {
  std::error_code error;
  std::filesystem::create_directory(archive, error);
  std::ofstream information(archive / "Info.plist", std::ios::binary);
  information << xmlText(textDictionary({{"OSVersion", state.computer.osVersion},
                                         {"ArchiveIdentifier", "simulated computer"}}))
              << std::flush;
  return static_cast<bool>(information);
}

}  // namespace

ToolAnswer systemLogArchive(const BenchFile& bench, const ToolArguments& arguments) {
  const bool isCollect =
      arguments.size() == 3 && arguments[0] == "collect" && arguments[1] == "--output";
  if (!isCollect) return refusal("usage: log collect --output FOLDER", usageStatus);
  const std::filesystem::path archive =
      std::filesystem::path(arguments[2]) / "system_logs.logarchive";
  if (!writeArchive(archive, readBench(bench))) {
    return refusal(fmt::format("log: Could not create archive at {}", archive.string()),
                   cannotCreateStatus);
  }
  return {.output = fmt::format("Archive successfully written to {}\n", archive.string())};
}

}  // namespace corvane
