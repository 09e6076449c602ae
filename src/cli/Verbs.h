#pragma once

namespace CLI {
class App;
}

namespace corvane {

struct BenchOptions;
struct CommandContext;
struct LaunchOptions;

// The verbs of both programs, each in the file that is named like its function. Each adds itself to
// `app` with its arguments and with what is done when a command line names it. `context` and
// `options` must outlive `app`.

// corvane, in cli/, cli/archive/.

void addHistoryCommand(CLI::App& app, CommandContext& context, const LaunchOptions& options);
void addListCommand(CLI::App& app, CommandContext& context, const LaunchOptions& options);
void addShowCommand(CLI::App& app, CommandContext& context, const LaunchOptions& options);
void addWatchCommand(CLI::App& app, CommandContext& context, const LaunchOptions& options);
void addLogsCommand(CLI::App& app, CommandContext& context, const LaunchOptions& options);
void addSFPCommand(CLI::App& app, CommandContext& context);
void addSetCommand(CLI::App& app, CommandContext& context, const LaunchOptions& options);
void addFirmwareCommand(CLI::App& app, CommandContext& context, const LaunchOptions& options);
void addUpdateCommand(CLI::App& app, CommandContext& context, const LaunchOptions& options);
void addArchiveCommand(CLI::App& app, CommandContext& context);

// corvane-bench, in cli/bench/. The first three need no bench before them.

void addNewCommand(CLI::App& app, CommandContext& context);
void addImageCommand(CLI::App& app, CommandContext& context);
void addServeCommand(CLI::App& app, CommandContext& context);
void addBenchShowCommand(CLI::App& app, CommandContext& context, const BenchOptions& options);
void addPlugCommand(CLI::App& app, CommandContext& context, const BenchOptions& options);
void addUnplugCommand(CLI::App& app, CommandContext& context, const BenchOptions& options);
void addLinkCommand(CLI::App& app, CommandContext& context, const BenchOptions& options);
void addBenchSFPCommand(CLI::App& app, CommandContext& context, const BenchOptions& options);
void addDriverCommand(CLI::App& app, CommandContext& context, const BenchOptions& options);
void addOSCommand(CLI::App& app, CommandContext& context, const BenchOptions& options);
void addFaultCommand(CLI::App& app, CommandContext& context, const BenchOptions& options);
void addBenchSetCommand(CLI::App& app, CommandContext& context, const BenchOptions& options);

}  // namespace corvane
