#pragma once

#include <functional>
#include <string>

#include "cli/answers/CommandOutput.h"
#include "platform/bench/file/BenchFile.h"

namespace CLI {
class App;
}

namespace corvane {

/// What stands before the verb on the command line of `corvane-bench`.
struct BenchOptions {
  std::string bench;  ///< the file; empty when none is named
};

/// Adds every verb of `corvane-bench`, and the bench that is named before it. `context` and
/// `options` must outlive `app`.
void addBenchCommands(CLI::App& app, CommandContext& context, BenchOptions& options);

// What the verbs share. All of them throw CommandFailure.

/// Adds a verb that does `work` when the command line names it.
CLI::App& addBenchVerb(CLI::App& app, CommandContext& context, const std::string& name,
                       const std::string& description, std::function<void()> work);

/// The same for a verb that needs a bench: refuses a command line that names none.
CLI::App& addBenchVerb(CLI::App& app, CommandContext& context, const BenchOptions& options,
                       const std::string& name, const std::string& description,
                       std::function<void()> work);

void addLabelArgument(CLI::App& command, std::string& label);
void addPortOption(CLI::App& command, int& port);

/// The answer of a verb that has none but its exit status: under `--json` an empty document.
void printDone(CommandContext& context);

/// Changes the bench file as a whole, or leaves it as it was.
void changeBench(const BenchOptions& options, const std::function<void(BenchState&)>& change);

/// What to tell of a bench file that cannot be read or written, or does not fit.
CommandFailure refusalOf(const BenchOptions& options, const BenchFileError& error);

/// The adapter that is plugged in under that label or name.
BenchAdapter& requireAdapter(BenchState& state, const BenchOptions& options,
                             const std::string& label);

/// The same, which also has to have that port.
BenchAdapter& requireAdapterWithPort(BenchState& state, const BenchOptions& options,
                                     const std::string& label, int port);

}  // namespace corvane
