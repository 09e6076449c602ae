#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "CORVANE2Archive/CORVANE2Archive.h"
#include "TemporaryFolder.h"

namespace corvane::archivetest {

inline std::string readFile(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  if (!stream) throw std::runtime_error("cannot read " + path);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// Writes a file anew. One that is there is removed rather than emptied: some file systems write
/// a file that was emptied to the disk at once, which takes a test that does it often a minute.
inline void writeFile(const std::string& path, std::string_view bytes) {
  std::filesystem::remove(path);
  std::ofstream stream(path, std::ios::binary | std::ios::trunc);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!stream.flush()) throw std::runtime_error("cannot write " + path);
}

inline std::string dataPath(std::string_view name) {
  return std::string(CORVANE_TEST_DATA "/archive/").append(name);
}

inline std::string golden(std::string_view name) {
  return readFile(dataPath(name));
}

inline std::string complemented(std::string bytes) {
  for (char& byte : bytes) byte = static_cast<char>(255 - static_cast<unsigned char>(byte));
  return bytes;
}

/// The four checksum bytes of a stored body, worked out the slow way.
inline std::string checksumBytes(std::string_view body) {
  const auto byteAt = [&](std::size_t index) { return static_cast<unsigned char>(body[index]); };
  std::uint64_t sum = 0;
  for (std::size_t index = 0; index + 1 < body.size(); index += 2) {
    sum += byteAt(index) + std::uint64_t{256} * byteAt(index + 1);
  }
  std::string bytes;
  for (int shift = 0; shift < 32; shift += 8) {
    const auto byte = static_cast<unsigned char>(sum >> shift);
    bytes += static_cast<char>(byte == 0 ? 1 : byte);
  }
  return bytes;
}

inline std::string headerBytes(std::string_view checksum) {
  std::string header = "*VELARC*1";
  header.append(51, '0');
  header.append(checksum);
  return header;
}

/// A closed package of any index text, however wrong.
inline std::string closedPackage(const std::string& index) {
  const auto body = complemented(index);
  return headerBytes(checksumBytes(body)) + body;
}

inline std::string openPackage(const std::string& index) {
  return headerBytes("0000") + complemented(index);
}

inline std::string fileBlock(const std::string& id, const std::string& size,
                             const std::string& chunk) {
  return "\n\t<archive_file>\n\t\t<file_id>" + id + "</file_id>\n\t\t<file_version>v-" + id +
         "</file_version>\n\t\t<file_description>d</file_description>\n\t\t<file_name>n</file_name>"
         "\n\t\t<file_size>" +
         size + "</file_size>\n\t\t<file_chunk>" + chunk + "</file_chunk>\n\t</archive_file>\n";
}

inline std::string indexOf(const std::string& count, const std::string& blocks) {
  return "\n<velmar_archive>\n\t<archive_id>ID</archive_id>\n\t<archive_version>V</archive_version>"
         "\n\t<archive_file_count>" +
         count + "</archive_file_count>\n" + blocks + "</velmar_archive>";
}

/// The writer's records, on texts that live as long as they.
struct FileToAdd {
  FileToAdd(std::string fileId, std::string fileVersion, std::string fileDescription,
            std::string fileName, std::string bytes)
      : id(std::move(fileId)),
        version(std::move(fileVersion)),
        description(std::move(fileDescription)),
        name(std::move(fileName)),
        data(std::move(bytes)) {}

  ArchiveFile record() {
    ArchiveFile file;
    file.id = id.data();
    file.version = version.data();
    file.description = description.data();
    file.name = name.data();
    file.size = static_cast<std::int32_t>(data.size());
    file.data = reinterpret_cast<std::uint8_t*>(data.data());
    return file;
  }

  std::string id, version, description, name, data;
};

struct InfoToWrite {
  ArchiveInfo record() {
    ArchiveInfo info;
    info.id = id.data();
    info.version = version.data();
    info.fileCount = count;
    return info;
  }

  std::string id, version;
  std::int32_t count = 0;
};

inline std::string goldenImage() {
  return golden("image.bin");
}

inline FileToAdd goldenImageFile() {
  return {"emulex.grp", "11.2.156.27", "Controller firmware", "emulex.grp", goldenImage()};
}

inline FileToAdd goldenNotesFile() {
  return {"emulex", "1", "Notes", "notes.txt", "ok"};
}

/// The records for building a package; they must outlive what is returned.
inline ArchiveFiles filesOf(const std::vector<ArchiveFile>& records) {
  return {[&records](std::int32_t index) -> const ArchiveFile& {
    return records.at(static_cast<std::size_t>(index));
  }};
}

}  // namespace corvane::archivetest
