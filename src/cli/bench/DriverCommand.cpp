#include <CLI/CLI.hpp>
#include <memory>

#include "cli/Verbs.h"
#include "cli/bench/BenchCommand.h"

namespace corvane {

namespace {

struct DriverArguments {
  std::string name;
  std::string version;
};

void changeDriver(const BenchOptions& options, const DriverArguments& arguments) {
  changeBench(options, [&](BenchState& state) {
    if (arguments.version == "none") {
      state.drivers.erase(arguments.name);
    } else {
      state.drivers[arguments.name] = arguments.version;
    }
  });
}

}  // namespace

void addDriverCommand(CLI::App& app, CommandContext& context, const BenchOptions& options) {
  const auto arguments = std::make_shared<DriverArguments>();
  CLI::App& command = addBenchVerb(app, context, options, "driver", "Install or remove a driver",
                                   [&context, &options, arguments] {
                                     changeDriver(options, *arguments);
                                     printDone(context);
                                   });
  command.add_option("NAME", arguments->name, "Corvane-FC, Corvane2-FC or Corvane2-10GE")
      ->required();
  command.add_option("VERSION", arguments->version, "its version, or none")->required();
}

}  // namespace corvane
