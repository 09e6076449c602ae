#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>

#include "cli/Verbs.h"
#include "cli/answers/Interruption.h"
#include "cli/bench/BenchCommand.h"
#include "cli/bench/FolderServer.h"

namespace corvane {

namespace {

struct ServeArguments {
  std::string folder;
  int port = 0;
};

/// Prints the server's address and serves until the program is interrupted.
void serve(CommandContext& context, const ServeArguments& arguments) {
  FolderServer server(arguments.folder, arguments.port);
  const Interruption interruption;
  const InterruptionAnswer answer(interruption, [&server] { server.stop(); });
  printAnswer(context, {{"url", server.url()}});
  context.out.flush();
  server.run();
}

}  // namespace

void addServeCommand(CLI::App& app, CommandContext& context) {
  constexpr int highestPort = 65535;
  const auto arguments = std::make_shared<ServeArguments>();
  CLI::App& command =
      addBenchVerb(app, context, "serve", "Serve an update folder on the loopback address",
                   [&context, arguments] { serve(context, *arguments); });
  command.add_option("DIR", arguments->folder, "the folder")->required();
  command.add_option("--port", arguments->port, "0, which it is by default, takes any free one")
      ->check(CLI::Range(0, highestPort));
}

}  // namespace corvane
