#include "launch/BenchOpening.h"

#include "launch/ShippedFiles.h"

namespace corvane {

namespace {

/// The error without the file's name, which stands before it.
std::string reasonOf(const BenchFileError& error) {
  std::string reason;
  if (error.line() != 0) reason += "line " + std::to_string(error.line()) + ": ";
  if (!error.field().empty()) reason += error.field() + " ";
  return reason + error.reason();
}

}  // namespace

BenchPlatformOptions benchOptions(const LaunchHost& host) {
  BenchPlatformOptions options;
  const ShippedFiles shipped = ShippedFiles::ofThisProgram();
  options.toolsFolder = shipped.benchToolsFolder().value_or("").string();
  options.samplesFolder = shipped.benchFolder().value_or("").string();
  options.standardOutput = host.commandOutput;
  return options;
}

LaunchFailure benchRefusal(const std::string& path, const BenchFileError& error) {
  switch (error.kind()) {
    case BenchFileError::Kind::Missing:
      return {LaunchExitStatus::NotFound, path, "there is no such bench",
              "Write one with \"corvane-bench new " + path + "\"."};
    case BenchFileError::Kind::Misfit:
      return {LaunchExitStatus::Failed, path, reasonOf(error),
              "Correct the file at that place; it has not been changed."};
    case BenchFileError::Kind::Unreadable:
      break;
  }
  return {LaunchExitStatus::Failed, path, reasonOf(error),
          "Check that the file and its folder can be read and written."};
}

}  // namespace corvane
