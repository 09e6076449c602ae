#include <CLI/CLI.hpp>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "cli/Verbs.h"
#include "cli/answers/CommandOutput.h"
#include "cli/session/TransceiverTexts.h"
#include "fibre_channel/FibreChannelProtocol.h"
#include "fibre_channel/SFPDecoder.h"

namespace corvane {

namespace {

using nlohmann::ordered_json;

struct CloseDump {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

// The identification area at the start of the dump; fewer bytes when the file is shorter.
std::vector<uint8_t> readDump(const std::string& path) {
  const std::unique_ptr<std::FILE, CloseDump> file(std::fopen(path.c_str(), "rb"));
  if (!file) {
    const bool isForbidden = errno == EACCES;
    throw CommandFailure(isForbidden ? ExitStatus::Failed : ExitStatus::NotFound, path,
                         std::strerror(errno),
                         "Name a file that holds the raw bytes of a module's memory.");
  }
  std::vector<uint8_t> bytes(SfpInfoStruct::eepromSize);
  bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file.get()));
  if (std::ferror(file.get()) != 0) {
    throw CommandFailure(ExitStatus::Failed, path, std::strerror(errno),
                         "Name a file that holds the raw bytes of a module's memory.");
  }
  return bytes;
}

SFPDescription decodeDump(const std::string& path) {
  const std::vector<uint8_t> bytes = readDump(path);
  if (bytes.size() < SfpInfoStruct::eepromSize) {
    throw CommandFailure(ExitStatus::Failed, path,
                         "holds " + std::to_string(bytes.size()) +
                             " bytes, but a module's "
                             "identification has " +
                             std::to_string(SfpInfoStruct::eepromSize),
                         "Dump the memory at address A0h again, as raw bytes.");
  }
  return decodeSFP(sfpReplyForEEPROM(bytes));
}

ordered_json answer(const SFPDescription& module) {
  ordered_json fields{{"result", static_cast<int64_t>(module.result)}};
  fields.update(transceiverTexts(module));
  return fields;
}

}  // namespace

void addSFPCommand(CLI::App& app, CommandContext& context) {
  const auto path = std::make_shared<std::string>();
  auto* command = app.add_subcommand("sfp", "Decode a transceiver's memory dump");
  addJsonFlag(*command, context);
  command->add_option("FILE", *path, "The module's memory at address A0h, raw, at least 96 bytes")
      ->required();
  command->callback([&context, path] { printAnswer(context, answer(decodeDump(*path))); });
}

}  // namespace corvane
