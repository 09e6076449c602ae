#pragma once

namespace CLI {
class App;
}

namespace corvane {

struct CommandContext;
struct LaunchOptions;

/// Adds `logs`, which collects what support needs as the window's button does. `context` and
/// `options` must outlive `app`.
void addLogsCommand(CLI::App& app, CommandContext& context, const LaunchOptions& options);

}  // namespace corvane
