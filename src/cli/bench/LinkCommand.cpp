#include <CLI/CLI.hpp>
#include <memory>
#include <optional>

#include "cli/Verbs.h"
#include "cli/bench/BenchCommand.h"
#include "platform/bench/file/BenchEdits.h"

namespace corvane {

namespace {

struct LinkArguments {
  std::string label;
  std::string state;
  int port = 0;
  std::optional<int64_t> speed;
};

void changeLink(const BenchOptions& options, const LinkArguments& arguments) {
  changeBench(options, [&](BenchState& state) {
    BenchAdapter& adapter = requireAdapterWithPort(state, options, arguments.label, arguments.port);
    setLink(adapter, arguments.port, arguments.state == "up", arguments.speed);
  });
}

}  // namespace

void addLinkCommand(CLI::App& app, CommandContext& context, const BenchOptions& options) {
  const auto arguments = std::make_shared<LinkArguments>();
  CLI::App& command = addBenchVerb(app, context, options, "link", "Drop or restore a link",
                                   [&context, &options, arguments] {
                                     changeLink(options, *arguments);
                                     printDone(context);
                                   });
  addLabelArgument(command, arguments->label);
  command.add_option("STATE", arguments->state, "up or down")
      ->required()
      ->check(CLI::IsMember({"up", "down"}));
  addPortOption(command, arguments->port);
  command.add_option("--speed", arguments->speed, "what the partner runs at, in Mb/s");
}

}  // namespace corvane
