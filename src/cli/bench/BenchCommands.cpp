#include "cli/bench/BenchCommands.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <fstream>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>

#include "cli/answers/CommandOutput.h"
#include "cli/bench/BenchServer.h"
#include "platform/bench/file/BenchDemo.h"
#include "platform/bench/file/BenchEdits.h"
#include "platform/bench/file/BenchFile.h"
#include "platform/bench/file/BenchFirmwareImage.h"
#include "platform/bench/file/BenchProducts.h"

namespace corvane {

namespace {

using nlohmann::ordered_json;

struct BenchArguments {
  std::string bench;
  std::string subject;  ///< what the command is about: a label, a driver, a field
  std::string value;
  std::string name;
  int port = 0;
  int64_t bridge = 0;
  int64_t hop = 0;
  std::optional<int64_t> speed;
  int generation = 2;
  std::string version;
  size_t size = 65536;
};

/// Line, field and reason, as far as they are known; the file is named elsewhere.
std::string reasonOf(const BenchFileError& error) {
  std::string place;
  if (error.line() > 0) place = "line " + std::to_string(error.line()) + ": ";
  if (!error.field().empty()) place += error.field() + ": ";
  return place + error.reason();
}

CommandFailure refusalOf(const BenchArguments& arguments, const BenchFileError& error) {
  using Kind = BenchFileError::Kind;
  const std::string reason = reasonOf(error);
  switch (error.kind()) {
    case Kind::Missing:
      return {ExitStatus::NotFound, arguments.bench, reason,
              "Write one with \"corvane-bench new " + arguments.bench + "\"."};
    case Kind::Misfit:
      return {ExitStatus::Failed, arguments.bench, reason,
              "The file has not been changed. Its fields are described in bench/schema.json."};
    case Kind::Unreadable:
      break;
  }
  return {ExitStatus::Failed, arguments.bench, reason,
          "Check that the file and its folder can be read and written."};
}

/// Changes the bench, and turns what goes wrong into a failure of the command.
void changeBench(const BenchArguments& arguments, const std::function<void(BenchState&)>& change) {
  try {
    BenchFile(arguments.bench).update(change);
  } catch (const BenchFileError& error) {
    throw refusalOf(arguments, error);
  } catch (const BenchEditError& error) {
    throw CommandFailure(
        ExitStatus::Failed, arguments.bench, error.what(),
        "The file has not been changed; \"corvane-bench " + arguments.bench + " show\" prints it.");
  }
}

BenchAdapter& adapterOf(BenchState& state, const BenchArguments& arguments) {
  if (BenchAdapter* adapter = findAdapter(state, arguments.subject)) return *adapter;
  throw CommandFailure(ExitStatus::NotFound, arguments.subject,
                       "no adapter is plugged in under that label or name",
                       "\"corvane-bench " + arguments.bench + " show\" prints what is there.");
}

void requirePort(const BenchAdapter& adapter, const BenchArguments& arguments) {
  const size_t ports =
      adapter.nodeWWN.empty() ? adapter.ethernetPorts.size() : adapter.fibreChannelPorts.size();
  if (arguments.port >= 1 && static_cast<size_t>(arguments.port) <= ports) return;
  throw CommandFailure(ExitStatus::NotFound, arguments.subject,
                       "there is no port " + std::to_string(arguments.port),
                       "An adapter has the ports 1 and 2.");
}

BenchAdapter& adapterWithPort(BenchState& state, const BenchArguments& arguments) {
  BenchAdapter& adapter = adapterOf(state, arguments);
  requirePort(adapter, arguments);
  return adapter;
}

std::string textOfFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    throw CommandFailure(ExitStatus::NotFound, path, "it cannot be read",
                         "Name a dump of a transceiver, or \"none\".");
  }
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string hexadecimal(const std::string& bytes) {
  static constexpr std::string_view digits = "0123456789abcdef";
  std::string text;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    text += digits[value >> 4U];
    text += digits[value & 0xFU];
  }
  return text;
}

BenchTransceiver moduleOf(const std::string& path) {
  constexpr size_t serialAreaSize = 96;
  if (path == "none") return {};
  const std::string bytes = textOfFile(path);
  if (bytes.size() < serialAreaSize) {
    throw CommandFailure(ExitStatus::Failed, path, "it is shorter than 96 bytes",
                         "A transceiver dump begins with the 96 bytes that SFF-8472 lays down.");
  }
  return {"", hexadecimal(bytes.substr(0, serialAreaSize))};
}

void newBench(const BenchArguments& arguments) {
  try {
    const BenchFile file(arguments.bench);
    if (std::filesystem::exists(file.path())) {
      throw CommandFailure(ExitStatus::Failed, arguments.bench, "there is such a file already",
                           "Name another file, or remove this one first.");
    }
    file.create(arguments.value == "demo" ? demoBench() : BenchState{});
  } catch (const BenchFileError& error) {
    throw refusalOf(arguments, error);
  }
}

void showBench(CommandContext& context, const BenchArguments& arguments) {
  try {
    const BenchFile file(arguments.bench);
    file.load();
    context.out << file.text();
  } catch (const BenchFileError& error) {
    throw refusalOf(arguments, error);
  }
}

void plug(CommandContext& context, const BenchArguments& arguments) {
  std::string label;
  changeBench(arguments, [&](BenchState& state) {
    const std::optional<std::string> name =
        arguments.name.empty() ? std::nullopt : std::optional(arguments.name);
    label = plugAdapter(state, arguments.subject, arguments.bridge, arguments.hop, name);
  });
  printAnswer(context, {{"label", label}});
}

void unplug(const BenchArguments& arguments) {
  changeBench(arguments, [&](BenchState& state) { unplugAdapter(adapterOf(state, arguments)); });
}

void changeLink(const BenchArguments& arguments) {
  changeBench(arguments, [&](BenchState& state) {
    setLink(adapterWithPort(state, arguments), arguments.port, arguments.value == "up",
            arguments.speed);
  });
}

void changeModule(const BenchArguments& arguments) {
  const BenchTransceiver module = moduleOf(arguments.value);
  changeBench(arguments, [&](BenchState& state) {
    fibreChannelPort(adapterWithPort(state, arguments), arguments.port).transceiver = module;
  });
}

void changeDriver(const BenchArguments& arguments) {
  changeBench(arguments, [&](BenchState& state) {
    if (arguments.value == "none") {
      state.drivers.erase(arguments.subject);
    } else {
      state.drivers[arguments.subject] = arguments.value;
    }
  });
}

void changeSystemVersion(const BenchArguments& arguments) {
  changeBench(arguments, [&](BenchState& state) { state.computer.osVersion = arguments.value; });
}

void changeFault(const BenchArguments& arguments) {
  changeBench(arguments, [&](BenchState& state) {
    if (arguments.value == "on") {
      state.faults.insert(arguments.subject);
    } else {
      state.faults.erase(arguments.subject);
    }
  });
}

void setField(const BenchArguments& arguments) {
  try {
    BenchFile(arguments.bench).set(arguments.subject, arguments.value);
  } catch (const BenchFileError& error) {
    throw refusalOf(arguments, error);
  }
}

/// A made-up payload: enough to fill a flash, the same each time.
std::vector<uint8_t> payloadOf(size_t size) {
  std::vector<uint8_t> payload(size);
  for (size_t index = 0; index < size; ++index) {
    payload[index] = static_cast<uint8_t>(index * 131 + (index >> 8U) * 17);
  }
  return payload;
}

void writeImage(const BenchArguments& arguments) {
  const auto image =
      makeFirmwareImage({arguments.generation, arguments.version}, payloadOf(arguments.size));
  std::ofstream file(arguments.value, std::ios::binary | std::ios::trunc);
  file.write(reinterpret_cast<const char*>(image.data()),
             static_cast<std::streamsize>(image.size()));
  if (!file.flush()) {
    throw CommandFailure(ExitStatus::Failed, arguments.value, "it cannot be written",
                         "Check that its folder is there and can be written.");
  }
}

void serve(CommandContext& context, const BenchArguments& arguments) {
  serveFolder(context, arguments.value, arguments.port);
}

using BenchWork = void (*)(CommandContext&, const BenchArguments&);

/// A command that answers by its exit status alone; under `--json` that is an empty document.
template <void (*Change)(const BenchArguments&)>
void runSilently(CommandContext& context, const BenchArguments& arguments) {
  Change(arguments);
  printAnswer(context, ordered_json::object());
}

/// Adds commands that share one set of arguments.
class BenchCommandBuilder {
 public:
  BenchCommandBuilder(CLI::App& app, CommandContext& context)
      : app_(app), context_(context), arguments_(std::make_shared<BenchArguments>()) {}

  BenchArguments& arguments() { return *arguments_; }

  /// A command without a bench.
  CLI::App& add(const std::string& name, const std::string& description, BenchWork work) {
    CLI::App* command = app_.add_subcommand(name, description);
    addJsonFlag(*command, context_);
    command->callback(
        [work, &context = context_, arguments = arguments_] { work(context, *arguments); });
    return *command;
  }

  /// A command on the bench that is named before it.
  CLI::App& addOnBench(const std::string& name, const std::string& description, BenchWork work) {
    CLI::App& command = add(name, description, work);
    command.callback([work, name, &context = context_, arguments = arguments_] {
      if (arguments->bench.empty()) {
        throw CommandFailure(ExitStatus::WrongCommandLine, name, "no bench is named",
                             "Name the bench first: corvane-bench FILE " + name + " ...");
      }
      work(context, *arguments);
    });
    return command;
  }

  void addLabel(CLI::App& command) {
    command.add_option("LABEL", arguments_->subject, "the adapter's label, node name or MAC")
        ->required();
  }

  void addPort(CLI::App& command) {
    command.add_option("--port", arguments_->port, "1 or 2")->required();
  }

 private:
  CLI::App& app_;
  CommandContext& context_;
  const std::shared_ptr<BenchArguments> arguments_;
};

void addFileCommands(BenchCommandBuilder& builder) {
  BenchArguments& arguments = builder.arguments();
  CLI::App& created = builder.add("new", "Write a bench", &runSilently<newBench>);
  created.add_option("FILE", arguments.bench, "the bench to write")->required();
  created.add_option("--from", arguments.value, "demo or empty")
      ->default_str("demo")
      ->default_val("demo")
      ->check(CLI::IsMember({"demo", "empty"}));
  builder.addOnBench("show", "Print the bench", &showBench);
  CLI::App& field = builder.addOnBench("set", "Set any field", &runSilently<setField>);
  field.add_option("POINTER", arguments.subject, "the field's JSON pointer")->required();
  field.add_option("VALUE", arguments.value, "JSON, or a bare text")->required();
}

void addAdapterCommands(BenchCommandBuilder& builder) {
  BenchArguments& arguments = builder.arguments();
  CLI::App& plugged = builder.addOnBench("plug", "Plug an adapter in", &plug);
  plugged.add_option("PRODUCT", arguments.subject, "the product's name")->required();
  plugged.add_option("--bridge", arguments.bridge, "number of the host's downstream bridge")
      ->required();
  plugged.add_option("--hop", arguments.hop, "position on the chain")->required();
  plugged.add_option("--wwn", arguments.name, "its node name, or first MAC address");
  builder.addLabel(builder.addOnBench("unplug", "Unplug an adapter", &runSilently<unplug>));
  CLI::App& link = builder.addOnBench("link", "Drop or restore a link", &runSilently<changeLink>);
  builder.addLabel(link);
  link.add_option("STATE", arguments.value, "up or down")
      ->required()
      ->check(CLI::IsMember({"up", "down"}));
  builder.addPort(link);
  link.add_option("--speed", arguments.speed, "what the partner runs at, in Mb/s");
  CLI::App& module = builder.addOnBench("sfp", "Change a transceiver", &runSilently<changeModule>);
  builder.addLabel(module);
  module.add_option("DUMP", arguments.value, "its EEPROM, or none")->required();
  builder.addPort(module);
}

void addComputerCommands(BenchCommandBuilder& builder) {
  BenchArguments& arguments = builder.arguments();
  CLI::App& driver =
      builder.addOnBench("driver", "Install or remove a driver", &runSilently<changeDriver>);
  driver.add_option("NAME", arguments.subject, "Corvane-FC, Corvane2-FC or Corvane2-10GE")
      ->required();
  driver.add_option("VERSION", arguments.value, "its version, or none")->required();
  CLI::App& system =
      builder.addOnBench("os", "Change the system's release", &runSilently<changeSystemVersion>);
  system.add_option("VERSION", arguments.value, "such as 10.8.5 or 14.3")->required();
  CLI::App& fault = builder.addOnBench("fault", "Switch a fault", &runSilently<changeFault>);
  fault.add_option("NAME", arguments.subject, "such as link-flaps")->required();
  fault.add_option("STATE", arguments.value, "on or off")
      ->required()
      ->check(CLI::IsMember({"on", "off"}));
}

void addSupplyCommands(BenchCommandBuilder& builder) {
  constexpr size_t largestImage = 100'000'000;
  constexpr int highestPort = 65535;
  BenchArguments& arguments = builder.arguments();
  CLI::App& image =
      builder.add("image", "Write a controller image for a bench", &runSilently<writeImage>);
  image.add_option("FILE", arguments.value, "the image to write")->required();
  image.add_option("--generation", arguments.generation, "2 or 3")
      ->required()
      ->check(CLI::IsMember({2, 3}));
  image.add_option("--firmware-version", arguments.version, "at most 31 characters")
      ->required()
      ->check([](const std::string& version) {
        constexpr size_t longestVersion = 31;
        return version.size() <= longestVersion ? std::string() : "is longer than 31 characters";
      });
  image.add_option("--size", arguments.size, "bytes of payload")
      ->check(CLI::Range(size_t{0}, largestImage));
  CLI::App& server = builder.add("serve", "Serve an update folder on the loopback address", &serve);
  server.add_option("DIR", arguments.value, "the folder")->required();
  server.add_option("--port", arguments.port, "0, which it is by default, takes any free one")
      ->check(CLI::Range(0, highestPort));
}

}  // namespace

void addBenchCommands(CLI::App& app, CommandContext& context) {
  BenchCommandBuilder builder(app, context);
  app.add_option("BENCH", builder.arguments().bench, "the bench file to work on");
  app.require_subcommand(1);
  addFileCommands(builder);
  addAdapterCommands(builder);
  addComputerCommands(builder);
  addSupplyCommands(builder);
}

}  // namespace corvane
