#pragma once

namespace CLI {
class App;
}

namespace corvane {

struct CommandContext;
struct LaunchOptions;

/// Adds `set`. `context` and `options` must outlive `app`.
void addSetCommand(CLI::App& app, CommandContext& context, const LaunchOptions& options);

}  // namespace corvane
