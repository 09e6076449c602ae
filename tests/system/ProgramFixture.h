#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <nlohmann/json.hpp>
#include <string>
#include <thread>
#include <vector>

#include "TemporaryFolder.h"
#include "platform/Shell.h"

namespace corvane {

/// What a program answered.
struct ProgramAnswer {
  int status = -1;
  std::string output;
  std::string errors;

  nlohmann::ordered_json json() const { return nlohmann::ordered_json::parse(output); }
};

/// Runs the built programs on copies of the shipped benches, in a folder of the test's own.
class ProgramFixture : public ::testing::Test {
 protected:
  std::filesystem::path path(const std::string& name) const { return folder_.path() / name; }

  /// A copy of a shipped bench on which time flies.
  std::string bench(const std::string& name) const {
    std::ifstream shipped(std::string(CORVANE_SOURCE_DIR) + "/bench/" + name + ".json");
    auto state = nlohmann::ordered_json::parse(shipped);
    state["clockRate"] = 1000;
    const auto copy = path(std::filesystem::path(name).filename().string() + ".json");
    std::ofstream(copy) << state.dump(2);
    return copy.string();
  }

  ProgramAnswer corvane(const std::vector<std::string>& arguments) const {
    return run("corvane", arguments);
  }

  ProgramAnswer run(const std::string& program, const std::vector<std::string>& arguments) const {
    ProgramAnswer answer;
    const std::string line = commandLine(program, arguments) + " >" + shellPath(path("out")) +
                             " 2>" + shellPath(path("err")) + " </dev/null";
    const int status = std::system(line.c_str());
    answer.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    answer.output = content(path("out"));
    answer.errors = content(path("err"));
    return answer;
  }

  std::string commandLine(const std::string& program,
                          const std::vector<std::string>& arguments) const {
    // The user's own bench, should a program fall back on it, is the test's as well.
    std::string line = "env -u CORVANE_BENCH XDG_DATA_HOME=" + shellPath(folder_.path()) + " " +
                       shellPath(programFolder() + "/" + program);
    for (const auto& argument : arguments) line += " " + shellWord(argument);
    return line;
  }

  static std::string content(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  /// Waits, within a generous bound, for what a program in the background is to bring about. The
  /// test fails, but goes on, when it does not come.
  static void waitUntil(const std::function<bool()>& condition) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!condition() && std::chrono::steady_clock::now() < limit)
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    EXPECT_TRUE(condition());
  }

  /// The lines of a journal that tell of calls, those of the system log left out.
  std::vector<nlohmann::ordered_json> journal(const std::filesystem::path& path) const {
    std::vector<nlohmann::ordered_json> lines;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
      auto call = nlohmann::ordered_json::parse(line);
      if (call.at("call") != "log") lines.push_back(std::move(call));
    }
    return lines;
  }

 private:
  /// The programs under test: those of the build, unless the environment names others.
  static std::string programFolder() {
    const char* const named = std::getenv("CORVANE_PROGRAM_FOLDER");
    return named == nullptr ? std::string(CORVANE_BINARY_DIR) + "/bin" : named;
  }

  const TemporaryFolder folder_;
};

/// The keys of an object, in order.
inline std::vector<std::string> keysOf(const nlohmann::ordered_json& object) {
  std::vector<std::string> keys;
  for (const auto& field : object.items()) keys.push_back(field.key());
  return keys;
}

}  // namespace corvane
