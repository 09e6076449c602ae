// Random files go into a package and must come out byte-equal, in every order.

#include <cstdint>
#include <vector>

#include "CORVANE2Archive/CORVANE2Archive.h"
#include "fuzz/Require.h"
#include "fuzz/ScratchFile.h"
#include "fuzz/TakenText.h"

using namespace corvane;

namespace {

constexpr std::size_t mostFiles = 6;

struct RandomFile {
  std::string id;
  std::string version;
  std::string data;

  ArchiveFile record() {
    ArchiveFile file;
    file.id = id.data();
    file.version = version.data();
    file.description = version.data();
    file.name = id.data();
    file.size = static_cast<std::int32_t>(data.size());
    file.data = reinterpret_cast<std::uint8_t*>(data.data());
    return file;
  }
};

/// A text that a package can store: no "<" and no byte that is stored as zero.
std::string storableText(std::string_view& input) {
  auto text = fuzz::takeText(input);
  for (char& byte : text) {
    if (byte == '<' || byte == '\xFF') byte = '_';
  }
  return text;
}

std::string takeBytes(std::string_view& input) {
  if (input.size() < 2) return {};
  const auto length = static_cast<std::size_t>(static_cast<unsigned char>(input[0])) * 4 +
                      static_cast<unsigned char>(input[1]);
  input.remove_prefix(2);
  const std::string bytes(input.substr(0, length));
  input.remove_prefix(bytes.size());
  return bytes;
}

std::vector<RandomFile> takeFiles(std::string_view input) {
  std::vector<RandomFile> files;
  while (!input.empty() && files.size() < mostFiles) {
    // The number keeps ids apart while one may still be a prefix of another.
    auto id = std::to_string(files.size()) + storableText(input);
    auto version = storableText(input);
    files.push_back({std::move(id), std::move(version), takeBytes(input)});
  }
  return files;
}

void writePackage(const std::string& path, std::vector<RandomFile>& files) {
  std::vector<ArchiveFile> records;
  for (auto& file : files) records.push_back(file.record());
  const auto record = [&records](std::int32_t index) -> const ArchiveFile& {
    return records.at(static_cast<std::size_t>(index));
  };
  char text[] = "roundtrip";
  const ArchiveInfo info{text, text, static_cast<std::int32_t>(files.size())};
  fuzz::require(CORVANE2Archive_Compress(path.c_str(), info, {record}) == ArchiveSuccess,
                "package is written");
}

void readBack(const char* text, const RandomFile& file) {
  ArchiveFile found;
  fuzz::require(VelmarArchive_parse_file(text, file.id.c_str(), found) == ArchiveSuccess,
                "file is found");
  const std::string_view data(reinterpret_cast<const char*>(found.data), found.decodedSize);
  fuzz::require(data == file.data, "bytes are equal");
  fuzz::require(static_cast<std::size_t>(found.size) == file.data.size(), "size is equal");
  fuzz::require(file.version == found.version, "version is equal");
  VelmarArchive_free_file(found);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  auto files = takeFiles({reinterpret_cast<const char*>(data), size});
  const auto path = fuzz::scratchPath("package");
  writePackage(path, files);
  char* text = nullptr;
  fuzz::require(VelmarArchive_read(path.c_str(), &text) == ArchiveSuccess, "package is read");
  for (auto file = files.rbegin(); file != files.rend(); ++file) readBack(text, *file);
  VelmarArchive_free_xml(&text);
  return 0;
}
