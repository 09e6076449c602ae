#include <CLI/CLI.hpp>
#include <fstream>
#include <memory>
#include <vector>

#include "cli/Verbs.h"
#include "cli/bench/BenchCommand.h"
#include "platform/bench/file/BenchFirmwareImage.h"

namespace corvane {

namespace {

struct ImageArguments {
  std::string path;
  int generation = 2;
  std::string version;
  size_t size = 65536;
};

/// A made-up payload: enough to fill a flash, the same each time.
std::vector<uint8_t> payloadOf(size_t size) {
  std::vector<uint8_t> payload(size);
  for (size_t index = 0; index < size; ++index) {
    payload[index] = static_cast<uint8_t>(index * 131 + (index >> 8U) * 17);
  }
  return payload;
}

void writeImage(const ImageArguments& arguments) {
  const auto image =
      makeFirmwareImage({arguments.generation, arguments.version}, payloadOf(arguments.size));
  std::ofstream file(arguments.path, std::ios::binary | std::ios::trunc);
  file.write(reinterpret_cast<const char*>(image.data()),
             static_cast<std::streamsize>(image.size()));
  if (!file.flush()) {
    throw CommandFailure(ExitStatus::Failed, arguments.path, "it cannot be written",
                         "Check that its folder is there and can be written.");
  }
}

std::string requireFittingVersion(const std::string& version) {
  constexpr size_t longestVersion = 31;
  return version.size() <= longestVersion ? std::string() : "is longer than 31 characters";
}

}  // namespace

void addImageCommand(CLI::App& app, CommandContext& context) {
  constexpr size_t largestImage = 100'000'000;
  const auto arguments = std::make_shared<ImageArguments>();
  CLI::App& command = addBenchVerb(app, context, "image", "Write a controller image for a bench",
                                   [&context, arguments] {
                                     writeImage(*arguments);
                                     printDone(context);
                                   });
  command.add_option("FILE", arguments->path, "the image to write")->required();
  command.add_option("--generation", arguments->generation, "2 or 3")
      ->required()
      ->check(CLI::IsMember({2, 3}));
  command.add_option("--firmware-version", arguments->version, "at most 31 characters")
      ->required()
      ->check(requireFittingVersion);
  command.add_option("--size", arguments->size, "bytes of payload")
      ->check(CLI::Range(size_t{0}, largestImage));
}

}  // namespace corvane
