#pragma once

namespace CLI {
class App;
}

namespace corvane {

struct CommandContext;
struct LaunchOptions;

/// Adds `list`. `context` and `options` must outlive `app`.
void addListCommand(CLI::App& app, CommandContext& context, const LaunchOptions& options);

}  // namespace corvane
