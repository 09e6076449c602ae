// The bare work that no program for packages can do without, each part alone: what
// benchmarks/archive_ratios.py measures the archive commands against.
//
//   archive_yardstick PACKAGE MEMBER SCRATCH
//
// Reads PACKAGE and MEMBER, the file that it holds, into fresh memory, and adds up,
// encodes and decodes in memory that has been touched before. Prints the processor
// time (user and system) of each part in seconds, as JSON.

#include <sys/resource.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

extern "C" {
#include <b64/cdecode.h>
#include <b64/cencode.h>
}

namespace {

constexpr std::size_t transferLength = 128 * 1024;

double processorSeconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double timed(const std::function<void()>& work) {
  const double begin = processorSeconds();
  work();
  return processorSeconds() - begin;
}

std::vector<char> loadFile(const char* path) {
  std::ifstream stream(path, std::ios::binary | std::ios::ate);
  std::vector<char> bytes(static_cast<std::size_t>(stream.tellg()));
  stream.seekg(0).read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!stream) std::exit(1);
  return bytes;
}

/// Reads a file into memory of its own, as a program has to that works on it there.
void readIntoMemory(const char* path, std::size_t size) {
  const auto memory = std::make_unique_for_overwrite<char[]>(size);
  std::FILE* file = std::fopen(path, "rb");
  std::setvbuf(file, nullptr, _IONBF, 0);
  if (std::fread(memory.get(), 1, size, file) != size) std::exit(1);
  std::fclose(file);
}

void writeThrough(const char* path, const std::vector<char>& bytes) {
  std::FILE* file = std::fopen(path, "wb");
  std::setvbuf(file, nullptr, _IONBF, 0);
  for (std::size_t at = 0; at < bytes.size(); at += transferLength) {
    std::fwrite(bytes.data() + at, 1, std::min(transferLength, bytes.size() - at), file);
  }
  std::fclose(file);
  std::remove(path);
}

std::uint64_t wordSum(const std::vector<char>& bytes) {
  std::uint64_t sum = 0;
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    sum += static_cast<std::uint64_t>(static_cast<unsigned char>(bytes[at])) +
           256 * static_cast<std::uint64_t>(static_cast<unsigned char>(bytes[at + 1]));
  }
  return sum;
}

int encode(const std::vector<char>& bytes, std::vector<char>& code) {
  base64_encodestate state;
  base64_init_encodestate(&state);
  const int length =
      base64_encode_block(bytes.data(), static_cast<int>(bytes.size()), code.data(), &state);
  return length + base64_encode_blockend(code.data() + length, &state);
}

void decode(const std::vector<char>& code, int length, std::vector<char>& bytes) {
  base64_decodestate state;
  base64_init_decodestate(&state);
  base64_decode_block(code.data(), length, bytes.data(), &state);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fprintf(stderr, "usage: archive_yardstick PACKAGE MEMBER SCRATCH\n");
    return 2;
  }
  const auto package = loadFile(argv[1]);
  const auto member = loadFile(argv[2]);
  std::vector<char> code(2 * member.size() + 8, 'x');
  std::vector<char> decoded(member.size() + 8, 'x');
  volatile std::uint64_t sum = 0;
  int length = 0;
  const double readPackage = timed([&] { readIntoMemory(argv[1], package.size()); });
  const double readMember = timed([&] { readIntoMemory(argv[2], member.size()); });
  const double checksum = timed([&] { sum = wordSum(package); });
  const double encoding = timed([&] { length = encode(member, code); });
  const double decoding = timed([&] { decode(code, length, decoded); });
  const double writePackage = timed([&] { writeThrough(argv[3], package); });
  const double writeMember = timed([&] { writeThrough(argv[3], member); });
  std::printf(
      "{\"readPackage\": %f, \"readMember\": %f, \"checksum\": %f, \"encode\": %f, "
      "\"decode\": %f, \"writePackage\": %f, \"writeMember\": %f}\n",
      readPackage, readMember, checksum, encoding, decoding, writePackage, writeMember);
  return 0;
}
