// Runs a fuzz target once for each file of the folders given, so that every
// input ever kept is replayed by an ordinary test run, without libFuzzer.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

void replay(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
  LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
}

}  // namespace

int main(int argc, char** argv) {
  size_t replayed = 0;
  for (int index = 1; index < argc; ++index) {
    if (!std::filesystem::is_directory(argv[index])) {
      std::fprintf(stderr, "no corpus folder %s\n", argv[index]);
      return 1;
    }
    for (const auto& entry : std::filesystem::directory_iterator(argv[index])) {
      replay(entry.path());
      ++replayed;
    }
  }
  std::printf("%zu inputs replayed\n", replayed);
  return replayed > 0 ? 0 : 1;
}
