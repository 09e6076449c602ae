#pragma once

namespace CLI {
class App;
}

namespace corvane {

struct CommandContext;

/// Adds `sfp`, which decodes a dump of a transceiver's identification memory.
/// `context` must outlive `app`.
void addSFPCommand(CLI::App& app, CommandContext& context);

}  // namespace corvane
