#pragma once

namespace CLI {
class App;
}

namespace corvane {

struct CommandContext;
struct LaunchOptions;

/// Adds `watch`. `context` and `options` must outlive `app`.
void addWatchCommand(CLI::App& app, CommandContext& context, const LaunchOptions& options);

}  // namespace corvane
