#include "platform/bench/file/BenchTransceiverDump.h"

#include <fmt/format.h>

#include <filesystem>
#include <fstream>

#include "text/Hexadecimal.h"

namespace corvane {

namespace {

BenchTransceiverBytes bytesOf(const std::string& hex) {
  const auto given = hexadecimalBytes(hex).value_or(std::vector<uint8_t>());
  BenchTransceiverBytes bytes{};
  std::copy_n(given.begin(), std::min(given.size(), bytes.size()), bytes.begin());
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
