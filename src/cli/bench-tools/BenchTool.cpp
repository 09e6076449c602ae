#include "cli/bench-tools/BenchTool.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <nlohmann/json.hpp>

#include "platform/bench/file/BenchDocument.h"
#include "platform/bench/file/BenchFolder.h"

namespace corvane {

namespace {

/// The status with which the shell's own commands report that they could not do their work at all.
constexpr int unusableBench = 2;

void print(std::FILE* stream, const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stream);
  std::fflush(stream);
}

ToolAnswer call(BenchTool tool, const std::string& program, const ToolArguments& arguments) {
  const char* path = std::getenv(benchVariable);
  if (!path || *path == '\0') {
    return refusal(program + ": no bench: " + benchVariable + " is not set", unusableBench);
  }
  try {
    return tool(BenchFile(path), arguments);
  } catch (const std::exception& error) {
    return refusal(program + ": " + error.what(), unusableBench);
  }
}

}  // namespace

int runBenchTool(BenchTool tool, int argumentCount, char** arguments) {
  const ToolArguments words(arguments + 1, arguments + argumentCount);
  const ToolAnswer answer = call(tool, arguments[0], words);
  print(stdout, answer.output);
  print(stderr, answer.error);
  while (answer.hangs) pause();
  return answer.status;
}

BenchState readBench(const BenchFile& bench) {
  try {
    return benchStateOf(BenchDocument::parse(bench.text()));
  } catch (const BenchDocument::exception& error) {
    throw BenchFileError(BenchFileError::Kind::Misfit, bench.path(), 0, "", error.what());
  }
}

ToolAnswer refusal(const std::string& reason, int status) {
  return {.error = reason + "\n", .status = status};
}

}  // namespace corvane
