#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>

#include "cli/Verbs.h"
#include "cli/bench/BenchCommand.h"
#include "platform/bench/file/BenchEdits.h"

namespace corvane {

namespace {

struct PlugArguments {
  std::string product;
  int64_t bridge = 0;
  int64_t hop = 0;
  std::optional<std::string> name;  ///< one of its own when not given
};

std::string plug(const BenchOptions& options, const PlugArguments& arguments) {
  std::string label;
  changeBench(options, [&](BenchState& state) {
    label = plugAdapter(state, arguments.product, arguments.bridge, arguments.hop, arguments.name);
  });
  return label;
}

}  // namespace

void addPlugCommand(CLI::App& app, CommandContext& context, const BenchOptions& options) {
  const auto arguments = std::make_shared<PlugArguments>();
  CLI::App& command = addBenchVerb(app, context, options, "plug", "Plug an adapter in",
                                   [&context, &options, arguments] {
                                     printAnswer(context, {{"label", plug(options, *arguments)}});
                                   });
  command.add_option("PRODUCT", arguments->product, "the product's name")->required();
  command.add_option("--bridge", arguments->bridge, "number of the host's downstream bridge")
      ->required();
  command.add_option("--hop", arguments->hop, "position on the chain")->required();
  command.add_option("--wwn", arguments->name, "its node name, or first MAC address");
}

}  // namespace corvane
