#include "platform/bench/file/BenchTransceiverDump.h"

#include <fmt/format.h>

#include <filesystem>
#include <fstream>

namespace corvane {

namespace {

BenchTransceiverBytes bytesOf(const std::string& hex) {
  BenchTransceiverBytes bytes{};
  for (size_t index = 0; index < bytes.size() && 2 * index + 1 < hex.size(); ++index) {
    bytes[index] = static_cast<uint8_t>(std::stoul(hex.substr(2 * index, 2), nullptr, 16));
  }
  return bytes;
}

}  // namespace

std::optional<BenchTransceiverBytes> transceiverBytes(const BenchTransceiver& transceiver,
                                                      const BenchFile& bench, Log& log) {
  if (!transceiver.hex.empty()) return bytesOf(transceiver.hex);
  if (transceiver.file.empty()) return std::nullopt;
  const auto path = std::filesystem::path(bench.path()).parent_path() / transceiver.file;
  std::ifstream file(path, std::ios::binary);
  BenchTransceiverBytes bytes{};
  file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  if (file) return bytes;
  log.system(fmt::format("The transceiver dump {} cannot be read; the cage is taken for empty",
                         path.string()));
  return std::nullopt;
}

}  // namespace corvane
