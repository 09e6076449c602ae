#pragma once

namespace CLI {
class App;
}

namespace corvane {

struct CommandContext;

/// Adds `archive` with its commands create, list, verify, extract and version.
/// `context` must outlive `app`.
void addArchiveCommand(CLI::App& app, CommandContext& context);

}  // namespace corvane
