#pragma once

namespace CLI {
class App;
}

namespace corvane {

struct CommandContext;

/// Adds everything that `corvane-bench` does: the commands that change the bench named first on the
/// command line, and `new`, `image` and `serve`, which need none. `context` must outlive `app`.
void addBenchCommands(CLI::App& app, CommandContext& context);

}  // namespace corvane
