#include <CLI/CLI.hpp>
#include <ostream>

#include "cli/Verbs.h"
#include "cli/bench/BenchCommand.h"

namespace corvane {

namespace {

void printBench(CommandContext& context, const BenchOptions& options) {
  try {
    const BenchFile file(options.bench);
    file.load();
    context.out << file.text();
  } catch (const BenchFileError& error) {
    throw refusalOf(options, error);
  }
}

}  // namespace

void addBenchShowCommand(CLI::App& app, CommandContext& context, const BenchOptions& options) {
  addBenchVerb(app, context, options, "show", "Print the bench",
               [&context, &options] { printBench(context, options); });
}

}  // namespace corvane
