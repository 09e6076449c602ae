#include <CLI/CLI.hpp>
#include <memory>

#include "cli/Verbs.h"
#include "cli/bench/BenchCommand.h"
#include "platform/bench/file/BenchEdits.h"

namespace corvane {

void addUnplugCommand(CLI::App& app, CommandContext& context, const BenchOptions& options) {
  const auto label = std::make_shared<std::string>();
  CLI::App& command = addBenchVerb(app, context, options, "unplug", "Unplug an adapter",
                                   [&context, &options, label] {
                                     changeBench(options, [&](BenchState& state) {
                                       unplugAdapter(requireAdapter(state, options, *label));
                                     });
                                     printDone(context);
                                   });
  addLabelArgument(command, *label);
}

}  // namespace corvane
