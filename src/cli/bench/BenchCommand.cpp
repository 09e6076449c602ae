#include "cli/bench/BenchCommand.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "cli/Verbs.h"
#include "platform/bench/file/BenchEdits.h"

namespace corvane {

namespace {

/// Line, field and reason, as far as they are known; the file is named elsewhere.
std::string reasonOf(const BenchFileError& error) {
  std::string place;
  if (error.line() > 0) place = "line " + std::to_string(error.line()) + ": ";
  if (!error.field().empty()) place += error.field() + ": ";
  return place + error.reason();
}

size_t portCount(const BenchAdapter& adapter) {
  return adapter.nodeWWN.empty() ? adapter.ethernetPorts.size() : adapter.fibreChannelPorts.size();
}

}  // namespace

CLI::App& addBenchVerb(CLI::App& app, CommandContext& context, const std::string& name,
                       const std::string& description, std::function<void()> work) {
  CLI::App* command = app.add_subcommand(name, description);
  addJsonFlag(*command, context);
  command->callback(std::move(work));
  return *command;
}

CLI::App& addBenchVerb(CLI::App& app, CommandContext& context, const BenchOptions& options,
                       const std::string& name, const std::string& description,
                       std::function<void()> work) {
  return addBenchVerb(app, context, name, description, [name, &options, work = std::move(work)] {
    if (options.bench.empty()) {
      throw CommandFailure(ExitStatus::WrongCommandLine, name, "no bench is named",
                           "Name the bench first: corvane-bench FILE " + name + " ...");
    }
    work();
  });
}

void addLabelArgument(CLI::App& command, std::string& label) {
  command.add_option("LABEL", label, "the adapter's label, node name or MAC")->required();
}

void addPortOption(CLI::App& command, int& port) {
  command.add_option("--port", port, "1 or 2")->required();
}

void printDone(CommandContext& context) {
  printAnswer(context, nlohmann::ordered_json::object());
}

void changeBench(const BenchOptions& options, const std::function<void(BenchState&)>& change) {
  try {
    BenchFile(options.bench).update(change);
  } catch (const BenchFileError& error) {
    throw refusalOf(options, error);
  } catch (const BenchEditError& error) {
    throw CommandFailure(
        ExitStatus::Failed, options.bench, error.what(),
        "The file has not been changed; \"corvane-bench " + options.bench + " show\" prints it.");
  }
}

CommandFailure refusalOf(const BenchOptions& options, const BenchFileError& error) {
  using Kind = BenchFileError::Kind;
  const std::string reason = reasonOf(error);
  switch (error.kind()) {
    case Kind::Missing:
      return {ExitStatus::NotFound, options.bench, reason,
              "Write one with \"corvane-bench new " + options.bench + "\"."};
    case Kind::Misfit:
      return {ExitStatus::Failed, options.bench, reason,
              "The file has not been changed. Its fields are described in bench/schema.json."};
    case Kind::Unreadable:
      break;
  }
  return {ExitStatus::Failed, options.bench, reason,
          "Check that the file and its folder can be read and written."};
}

BenchAdapter& requireAdapter(BenchState& state, const BenchOptions& options,
                             const std::string& label) {
  if (BenchAdapter* adapter = findAdapter(state, label)) return *adapter;
  throw CommandFailure(ExitStatus::NotFound, label,
                       "no adapter is plugged in under that label or name",
                       "\"corvane-bench " + options.bench + " show\" prints what is there.");
}

BenchAdapter& requireAdapterWithPort(BenchState& state, const BenchOptions& options,
                                     const std::string& label, int port) {
  BenchAdapter& adapter = requireAdapter(state, options, label);
  if (port >= 1 && static_cast<size_t>(port) <= portCount(adapter)) return adapter;
  throw CommandFailure(ExitStatus::NotFound, label, "there is no port " + std::to_string(port),
                       "An adapter has the ports 1 and 2.");
}

void addBenchCommands(CLI::App& app, CommandContext& context, BenchOptions& options) {
  app.add_option("BENCH", options.bench, "the bench file to work on");
  app.require_subcommand(1);
  addNewCommand(app, context);
  addBenchShowCommand(app, context, options);
  addBenchSetCommand(app, context, options);
  addPlugCommand(app, context, options);
  addUnplugCommand(app, context, options);
  addLinkCommand(app, context, options);
  addBenchSFPCommand(app, context, options);
  addDriverCommand(app, context, options);
  addOSCommand(app, context, options);
  addFaultCommand(app, context, options);
  addImageCommand(app, context);
  addServeCommand(app, context);
}

}  // namespace corvane
