#include <CLI/CLI.hpp>
#include <memory>

#include "cli/Verbs.h"
#include "cli/bench/BenchCommand.h"

namespace corvane {

namespace {

struct BenchSetArguments {
  std::string pointer;
  std::string value;
};

void setField(const BenchOptions& options, const BenchSetArguments& arguments) {
  try {
    BenchFile(options.bench).set(arguments.pointer, arguments.value);
  } catch (const BenchFileError& error) {
    throw refusalOf(options, error);
  }
}

}  // namespace

void addBenchSetCommand(CLI::App& app, CommandContext& context, const BenchOptions& options) {
  const auto arguments = std::make_shared<BenchSetArguments>();
  CLI::App& command =
      addBenchVerb(app, context, options, "set", "Set any field", [&context, &options, arguments] {
        setField(options, *arguments);
        printDone(context);
      });
  command.add_option("POINTER", arguments->pointer, "the field's JSON pointer")->required();
  command.add_option("VALUE", arguments->value, "JSON, or a bare text")->required();
}

}  // namespace corvane
