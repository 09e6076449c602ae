#include <CLI/CLI.hpp>
#include <fstream>
#include <iterator>
#include <memory>
#include <span>
#include <vector>

#include "cli/Verbs.h"
#include "cli/bench/BenchCommand.h"
#include "platform/bench/file/BenchEdits.h"
#include "text/Hexadecimal.h"

namespace corvane {

namespace {

struct BenchSFPArguments {
  std::string label;
  std::string dump;
  int port = 0;
};

std::vector<uint8_t> contentOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    throw CommandFailure(ExitStatus::NotFound, path, "it cannot be read",
                         "Name a dump of a transceiver, or \"none\".");
  }
  return {std::istreambuf_iterator<char>(file), {}};
}

BenchTransceiver moduleOf(const std::string& dump) {
  constexpr size_t serialAreaSize = 96;
  if (dump == "none") return {};
  const std::vector<uint8_t> bytes = contentOf(dump);
  if (bytes.size() < serialAreaSize) {
    throw CommandFailure(ExitStatus::Failed, dump, "it is shorter than 96 bytes",
                         "A transceiver dump begins with the 96 bytes that SFF-8472 lays down.");
  }
  return {"", lowerHexadecimal(std::span(bytes).first(serialAreaSize))};
}

void changeModule(const BenchOptions& options, const BenchSFPArguments& arguments) {
  const BenchTransceiver module = moduleOf(arguments.dump);
  changeBench(options, [&](BenchState& state) {
    BenchAdapter& adapter = requireAdapterWithPort(state, options, arguments.label, arguments.port);
    fibreChannelPort(adapter, arguments.port).transceiver = module;
  });
}

}  // namespace

void addBenchSFPCommand(CLI::App& app, CommandContext& context, const BenchOptions& options) {
  const auto arguments = std::make_shared<BenchSFPArguments>();
  CLI::App& command = addBenchVerb(app, context, options, "sfp", "Change a transceiver",
                                   [&context, &options, arguments] {
                                     changeModule(options, *arguments);
                                     printDone(context);
                                   });
  addLabelArgument(command, arguments->label);
  command.add_option("DUMP", arguments->dump, "its EEPROM, or none")->required();
  addPortOption(command, arguments->port);
}

}  // namespace corvane
