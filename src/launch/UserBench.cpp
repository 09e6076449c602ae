#include "launch/UserBench.h"

#include <cstdlib>
#include <filesystem>

#include "launch/LaunchFailure.h"
#include "platform/bench/file/BenchDemo.h"
#include "platform/bench/file/BenchFile.h"

namespace corvane {

namespace {

namespace files = std::filesystem;

/// The value of an environment variable that holds an absolute path; empty when it holds none.
files::path pathFromEnvironment(const char* name) {
  const char* const value = std::getenv(name);
  const files::path path = value == nullptr ? "" : value;
  return path.is_absolute() ? path : files::path();
}

files::path dataFolder() {
  files::path data = pathFromEnvironment("XDG_DATA_HOME");
  if (!data.empty()) return data;
  const files::path home = pathFromEnvironment("HOME");
  if (home.empty()) {
    throw LaunchFailure(LaunchExitStatus::Failed, "the user's own bench",
                        "neither XDG_DATA_HOME nor HOME names a folder",
                        "Name a bench with --bench FILE.");
  }
  return home / ".local" / "share";
}

void makeBench(const files::path& bench) {
  try {
    files::create_directories(bench.parent_path());
    BenchFile(bench.string()).create(demoBench());
  } catch (const std::exception& error) {
    throw LaunchFailure(LaunchExitStatus::Failed, bench.string(), error.what(),
                        "Make the folder writable, or name a bench with --bench FILE.");
  }
}

}  // namespace

std::string userBench() {
  const files::path bench = dataFolder() / "corvane" / "bench.json";
  std::error_code error;
  if (!files::exists(bench, error)) makeBench(bench);
  return bench.string();
}

}  // namespace corvane
