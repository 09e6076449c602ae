#include <CLI/CLI.hpp>
#include <memory>

#include "cli/Verbs.h"
#include "cli/bench/BenchCommand.h"

namespace corvane {

namespace {

struct FaultArguments {
  std::string name;
  std::string state;
};

void changeFault(const BenchOptions& options, const FaultArguments& arguments) {
  changeBench(options, [&](BenchState& state) {
    if (arguments.state == "on") {
      state.faults.insert(arguments.name);
    } else {
      state.faults.erase(arguments.name);
    }
  });
}

}  // namespace

void addFaultCommand(CLI::App& app, CommandContext& context, const BenchOptions& options) {
  const auto arguments = std::make_shared<FaultArguments>();
  CLI::App& command = addBenchVerb(app, context, options, "fault", "Switch a fault",
                                   [&context, &options, arguments] {
                                     changeFault(options, *arguments);
                                     printDone(context);
                                   });
  command.add_option("NAME", arguments->name, "such as link-flaps")->required();
  command.add_option("STATE", arguments->state, "on or off")
      ->required()
      ->check(CLI::IsMember({"on", "off"}));
}

}  // namespace corvane
