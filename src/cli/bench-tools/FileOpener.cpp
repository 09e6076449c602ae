#include "cli/bench-tools/FileOpener.h"

#include <fmt/format.h>

#include <filesystem>
#include <fstream>

namespace corvane {

namespace {

ToolAnswer record(const BenchFile& bench, const std::string& path) {
  const std::filesystem::path folder = bench.folder();
  std::filesystem::create_directories(folder);
  std::ofstream opened(folder / "opened.txt", std::ios::app);
  opened << path << '\n' << std::flush;
  if (!opened) return refusal("open: opened.txt in the bench's folder cannot be written");
  return {};
}

}  // namespace

ToolAnswer fileOpener(const BenchFile& bench, const ToolArguments& arguments) {
  if (arguments.size() != 1) return refusal("Usage: open FILE");
  const std::string& path = arguments[0];
  std::error_code ignored;
  if (!std::filesystem::exists(path, ignored)) {
    return refusal(fmt::format("The file {} does not exist.", path));
  }
  return record(bench, path);
}

}  // namespace corvane
