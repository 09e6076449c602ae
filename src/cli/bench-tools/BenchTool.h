#pragma once

#include <string>
#include <vector>

#include "platform/bench/file/BenchFile.h"

namespace corvane {

/// What a tool of the simulated computer prints, and its exit status.
struct ToolAnswer {
  std::string output = {};  ///< to standard output
  std::string error = {};   ///< to standard error
  int status = 0;
  bool hangs = false;  ///< prints its output and never ends
};

using ToolArguments = std::vector<std::string>;

/// A tool: what it does on a bench when called with these arguments. May throw BenchFileError.
using BenchTool = ToolAnswer (*)(const BenchFile& bench, const ToolArguments& arguments);

/// The main function of a tool's program: calls `tool` on the bench that the environment names
/// (benchVariable).
int runBenchTool(BenchTool tool, int argumentCount, char** arguments);

/// The state of the bench, for a tool that only looks. A tool is started for every single question,
/// so the file is not held against the schema again; whoever wrote it has done that. Throws
/// BenchFileError when the file cannot be read as a bench at all.
BenchState readBench(const BenchFile& bench);

/// An answer that refuses: `reason` on standard error with a line end.
ToolAnswer refusal(const std::string& reason, int status = 1);

}  // namespace corvane
