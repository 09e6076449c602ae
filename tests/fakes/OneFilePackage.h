#pragma once

#include <gtest/gtest.h>

#include <string>

#include "CORVANE2Archive/CORVANE2Archive.h"

namespace corvane {

/// Writes a package to `path` that holds `image` as its one file, with the id `member`.
inline void writeOneFilePackage(const std::string& path, std::string image,
                                std::string member = "emulex.grp", std::string version = "1.0") {
  std::string packageId = "package";
  ArchiveInfo info;
  info.id = packageId.data();
  info.version = version.data();
  info.fileCount = 1;
  ArchiveFile file;
  file.id = member.data();
  file.version = version.data();
  file.description = packageId.data();
  file.name = member.data();
  file.size = static_cast<int32_t>(image.size());
  file.data = reinterpret_cast<uint8_t*>(image.data());
  const ArchiveFiles files{[&file](int32_t) -> const ArchiveFile& { return file; }};
  ASSERT_EQ(CORVANE2Archive_Compress(path.c_str(), info, files), ArchiveSuccess);
}

}  // namespace corvane
