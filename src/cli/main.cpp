#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "cli/Verbs.h"
#include "cli/answers/CommandOutput.h"
#include "cli/answers/StandardStreams.h"
#include "launch/Launch.h"

namespace {

using namespace corvane;

void addGlobalOptions(CLI::App& app, CommandContext& context, LaunchOptions& options) {
  app.set_version_flag("--version", "corvane " CORVANE_VERSION, "Print the version");
  const auto name = [](const std::string& given) {
    return given.empty() ? std::string("the name is empty") : std::string();
  };
  app.add_option("--bench", options.bench,
                 "Run on the simulated computer in this file (or CORVANE_BENCH)")
      ->type_name("FILE")
      ->check(name);
  app.add_option("--dump", options.dump, "Show the computer in a registry dump or log folder")
      ->type_name("FILE|FOLDER")
      ->check(name);
  app.add_option("--journal", options.journal,
                 "Append one JSON line for all that crosses the platform boundary")
      ->type_name("FILE")
      ->check(name);
  addJsonFlag(app, context);
}

void addCommands(CLI::App& app, CommandContext& context, const LaunchOptions& options) {
  addListCommand(app, context, options);
  addShowCommand(app, context, options);
  addWatchCommand(app, context, options);
  addHistoryCommand(app, context, options);
  addLogsCommand(app, context, options);
  addSFPCommand(app, context);
  addSetCommand(app, context, options);
  addFirmwareCommand(app, context, options);
  addUpdateCommand(app, context, options);
  addArchiveCommand(app, context);
}

}  // namespace

int main(int argc, char** argv) {
  CommandContext context = standardContext("corvane");
  LaunchOptions options;
  CLI::App app("Manages Velmar's Thunderbolt Fibre Channel and 10 Gigabit Ethernet adapters.",
               "corvane");
  addGlobalOptions(app, context, options);
  app.fallthrough();
  app.require_subcommand(1);
  addCommands(app, context, options);
  const int status = runCommandLine(app, context, std::vector<std::string>(argv + 1, argv + argc));
  return endStandardOutput(context, status);
}
