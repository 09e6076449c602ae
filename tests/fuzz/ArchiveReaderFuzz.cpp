// A whole package. When the first byte is odd, the rest is an index text that is
// stored with a valid sum, so that inputs get past the checksum; else the rest is
// the package as it is.

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "CORVANE2Archive/ArchiveHeader.h"
#include "CORVANE2Archive/CORVANE2Archive.h"
#include "CORVANE2Archive/checksum.h"
#include "fuzz/Require.h"
#include "fuzz/ScratchFile.h"

using namespace corvane;

namespace {

std::string sealedPackage(std::string_view index) {
  std::string body(index);
  for (char& byte : body) byte = static_cast<char>(~byte);
  const std::uint64_t sum =
      body.empty() ? 0
                   : CalcEEPROM16BitCheckSum(reinterpret_cast<const std::uint8_t*>(body.data()), 0,
                                             body.size() - 1);
  auto header = openHeader();
  const auto field = checksumField(sum);
  std::copy(field.begin(), field.end(), header.checksum);
  return std::string(reinterpret_cast<const char*>(&header), sizeof header) + body;
}

void readAndParse(const std::string& path) {
  char* text = nullptr;
  const auto status = VelmarArchive_read(path.c_str(), &text);
  if (status == ArchiveSuccess) {
    ArchiveInfo info;
    VelmarArchive_parse_archive(text, info);
    VelmarArchive_free_archive(info);
    ArchiveFile file;
    if (VelmarArchive_parse_file(text, "emulex.grp", file) == ArchiveSuccess) {
      fuzz::require(file.decodedSize <= std::strlen(text), "decoded bytes fit the buffer");
    }
    VelmarArchive_free_file(file);
  }
  VelmarArchive_free_xml(&text);
}

void extract(const std::string& path) {
  const auto output = fuzz::scratchPath("out");
  std::remove(output.c_str());
  ArchiveExtraction extraction;
  const auto status =
      CORVANE2Archive_Decompress(path.c_str(), "emulex.grp", output.c_str(), &extraction);
  if (status != ArchiveSuccess) return;
  const auto claimed = static_cast<std::uint64_t>(std::max(extraction.claimed, 0));
  fuzz::require(extraction.due <= claimed && extraction.due <= fuzz::readScratch(path).size(),
                "no more is due than was claimed and than the package has");
  fuzz::require(extraction.due >= std::min(extraction.decoded, claimed),
                "nothing held is left out");
  fuzz::require(fuzz::readScratch(output).size() == extraction.due, "all that is due is written");
}

void readVersion(const std::string& path) {
  char version[archiveVersionCapacity];
  std::memset(version, '?', sizeof version);
  if (CORVANE2Archive_Get_File_Version(path.c_str(), "emulex.grp", version) == ArchiveSuccess) {
    fuzz::require(std::memchr(version, '\0', sizeof version) != nullptr, "version is terminated");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  const std::string_view rest(reinterpret_cast<const char*>(data + 1), size - 1);
  const auto path = fuzz::scratchPath("package");
  fuzz::writeScratch(path, data[0] % 2 == 1 ? sealedPackage(rest) : std::string(rest));
  readAndParse(path);
  extract(path);
  readVersion(path);
  return 0;
}
