#include <CLI/CLI.hpp>
#include <memory>

#include "cli/Verbs.h"
#include "cli/bench/BenchCommand.h"

namespace corvane {

void addOSCommand(CLI::App& app, CommandContext& context, const BenchOptions& options) {
  const auto version = std::make_shared<std::string>();
  CLI::App& command = addBenchVerb(
      app, context, options, "os", "Change the system's release", [&context, &options, version] {
        changeBench(options, [&](BenchState& state) { state.computer.osVersion = *version; });
        printDone(context);
      });
  command.add_option("VERSION", *version, "such as 10.8.5 or 14.3")->required();
}

}  // namespace corvane
