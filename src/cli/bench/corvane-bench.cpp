// The command line that makes and changes benches: simulated computers with adapters attached.

#include <CLI/CLI.hpp>

#include "cli/answers/CommandOutput.h"
#include "cli/answers/StandardStreams.h"
#include "cli/bench/BenchCommand.h"

int main(int argc, char** argv) {
  CLI::App app("Makes and changes benches, simulated computers with Velmar adapters attached.",
               "corvane-bench");
  app.set_version_flag("--version", "corvane-bench " CORVANE_VERSION);
  corvane::CommandContext context = corvane::standardContext("corvane-bench");
  corvane::BenchOptions options;
  corvane::addBenchCommands(app, context, options);
  const int status = corvane::runCommandLine(app, context, {argv + 1, argv + argc});
  return corvane::endStandardOutput(context, status);
}
