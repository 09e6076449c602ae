#pragma once

namespace CLI {
class App;
}

namespace corvane {

struct CommandContext;
struct LaunchOptions;

/// Adds `firmware`. `context` and `options` must outlive `app`.
void addFirmwareCommand(CLI::App& app, CommandContext& context, const LaunchOptions& options);

}  // namespace corvane
