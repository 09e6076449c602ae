#pragma once

namespace CLI {
class App;
}

namespace corvane {

struct CommandContext;
struct LaunchOptions;

/// Adds `update check` and `update install`. `context` and `options` must outlive `app`.
void addUpdateCommand(CLI::App& app, CommandContext& context, const LaunchOptions& options);

}  // namespace corvane
