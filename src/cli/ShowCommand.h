#pragma once

namespace CLI {
class App;
}

namespace corvane {

struct CommandContext;
struct LaunchOptions;

/// Adds `show`. `context` and `options` must outlive `app`.
void addShowCommand(CLI::App& app, CommandContext& context, const LaunchOptions& options);

}  // namespace corvane
