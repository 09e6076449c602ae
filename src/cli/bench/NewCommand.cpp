#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>

#include "cli/Verbs.h"
#include "cli/bench/BenchCommand.h"
#include "platform/bench/file/BenchDemo.h"

namespace corvane {

namespace {

struct NewArguments {
  BenchOptions made;
  std::string from = "demo";
};

void makeBench(const NewArguments& arguments) {
  const std::string& path = arguments.made.bench;
  try {
    const BenchFile file(path);
    if (std::filesystem::exists(file.path())) {
      throw CommandFailure(ExitStatus::Failed, path, "there is such a file already",
                           "Name another file, or remove this one first.");
    }
    file.create(arguments.from == "demo" ? demoBench() : BenchState{});
  } catch (const BenchFileError& error) {
    throw refusalOf(arguments.made, error);
  }
}

}  // namespace

void addNewCommand(CLI::App& app, CommandContext& context) {
  const auto arguments = std::make_shared<NewArguments>();
  CLI::App& command = addBenchVerb(app, context, "new", "Write a bench", [&context, arguments] {
    makeBench(*arguments);
    printDone(context);
  });
  command.add_option("FILE", arguments->made.bench, "the bench to write")->required();
  command.add_option("--from", arguments->from, "demo or empty")
      ->capture_default_str()
      ->check(CLI::IsMember({"demo", "empty"}));
}

}  // namespace corvane
