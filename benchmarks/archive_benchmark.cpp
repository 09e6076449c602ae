// How fast the archive module's parts are, beside the bare library calls.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "CORVANE2Archive/ArchiveChunk.h"
#include "CORVANE2Archive/ArchiveIndex.h"
#include "CORVANE2Archive/CORVANE2Archive.h"
#include "CORVANE2Archive/checksum.h"

namespace {

using namespace corvane;

constexpr std::int64_t smallest = 64 * 1024;
constexpr std::int64_t largest = 64 * 1024 * 1024;

std::vector<std::uint8_t> randomBytes(std::int64_t count) {
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(count));
  std::uint32_t state = 1;
  for (auto& byte : bytes) {
    state = state * 1664525 + 1013904223;
    byte = static_cast<std::uint8_t>(state >> 24);
  }
  return bytes;
}

/// A package of one file, gone with the scope.
class BenchmarkPackage {
 public:
  explicit BenchmarkPackage(std::int64_t size) : bytes_(randomBytes(size)) {
    std::string pattern =
        (std::filesystem::temp_directory_path() / "archive-benchmark-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) std::abort();
    folder_ = pattern;
  }
  ~BenchmarkPackage() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  BenchmarkPackage(const BenchmarkPackage&) = delete;
  BenchmarkPackage& operator=(const BenchmarkPackage&) = delete;

  ArchiveStatus create() {
    char text[] = "emulex.grp";
    ArchiveFile file{text,         text, text, text, static_cast<std::int32_t>(bytes_.size()),
                     bytes_.data()};
    const ArchiveFiles files{[&file](std::int32_t) -> const ArchiveFile& { return file; }};
    return CORVANE2Archive_Compress(path().c_str(), {text, text, 1}, files);
  }

  std::string path() const { return (folder_ / "a.pkg").string(); }
  std::string output() const { return (folder_ / "out").string(); }

 private:
  std::vector<std::uint8_t> bytes_;
  std::filesystem::path folder_;
};

void countBytes(benchmark::State& state) {
  state.SetBytesProcessed(state.iterations() * state.range(0));
}

void checksumPass(benchmark::State& state) {
  const auto bytes = randomBytes(state.range(0));
  for (auto _ : state) {
    benchmark::DoNotOptimize(CalcEEPROM16BitCheckSum(bytes.data(), 0, bytes.size() - 1));
  }
  countBytes(state);
}

void encodeInPieces(benchmark::State& state) {
  const auto bytes = randomBytes(state.range(0));
  const auto piece = std::make_unique<char[]>(ChunkEncoder::pieceCapacity);
  for (auto _ : state) {
    ChunkEncoder encoder(bytes);
    while (encoder.next(piece.get()) > 0) benchmark::DoNotOptimize(piece.get());
  }
  countBytes(state);
}

void encodeBare(benchmark::State& state) {
  const auto bytes = randomBytes(state.range(0));
  std::vector<char> code(bytes.size() * 2 + 8);
  for (auto _ : state) {
    base64_encodestate encoder;
    base64_init_encodestate(&encoder);
    benchmark::DoNotOptimize(base64_encode_block(reinterpret_cast<const char*>(bytes.data()),
                                                 static_cast<int>(bytes.size()), code.data(),
                                                 &encoder));
  }
  countBytes(state);
}

void createPackage(benchmark::State& state) {
  BenchmarkPackage package(state.range(0));
  for (auto _ : state) {
    if (package.create() != ArchiveSuccess) state.SkipWithError("not created");
  }
  countBytes(state);
}

void readVersion(benchmark::State& state) {
  BenchmarkPackage package(state.range(0));
  if (package.create() != ArchiveSuccess) state.SkipWithError("not created");
  char version[archiveVersionCapacity];
  for (auto _ : state) {
    if (CORVANE2Archive_Get_File_Version(package.path().c_str(), "emulex.grp", version) !=
        ArchiveSuccess) {
      state.SkipWithError("not read");
    }
  }
  countBytes(state);
}

void extractFile(benchmark::State& state) {
  BenchmarkPackage package(state.range(0));
  if (package.create() != ArchiveSuccess) state.SkipWithError("not created");
  for (auto _ : state) {
    if (CORVANE2Archive_Decompress(package.path().c_str(), "emulex.grp",
                                   package.output().c_str()) != ArchiveSuccess) {
      state.SkipWithError("not extracted");
    }
  }
  countBytes(state);
}

BENCHMARK(checksumPass)->Range(smallest, largest);
BENCHMARK(encodeBare)->Range(smallest, largest);
BENCHMARK(encodeInPieces)->Range(smallest, largest);
BENCHMARK(createPackage)->Range(smallest, largest);
BENCHMARK(readVersion)->Range(smallest, largest);
BENCHMARK(extractFile)->Range(smallest, largest);

}  // namespace

BENCHMARK_MAIN();
