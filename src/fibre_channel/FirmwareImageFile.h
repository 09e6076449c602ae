#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>

#include "CORVANE2Archive/CORVANE2Archive.h"

namespace corvane {

/// Closes the stream it is given; for std::unique_ptr.
struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using OpenFile = std::unique_ptr<std::FILE, CloseFile>;

/// Opens a firmware image for binary reading; null when it cannot be opened. Only a plain file of
/// the running user is opened, and never through a link: the image lies in a folder where anybody
/// may put files, and what it holds is programmed into an adapter.
OpenFile openFirmwareImage(const std::string& path);

/// The member of an update package that holds the controller's image.
inline constexpr const char* firmwareImageMember = "emulex.grp";

/// A package of this many bytes or more is not even opened.
inline constexpr uint64_t firmwarePackageSizeLimit = 100'000'000;

/// What the verification of a package came to.
struct PackageVerification {
  enum class Result { Verified, TooLarge, PathNot7Bit, Refused };

  Result result = Result::Refused;
  ArchiveStatus status = ArchiveSuccess;  ///< why it was refused
  std::string version;                    ///< of the image; empty unless verified

  bool succeeded() const { return result == Result::Verified; }
};

/// Whether the package is a valid one and holds an image. Its path is passed on as 7-bit text, so
/// any other path cannot be verified.
PackageVerification verifyFirmwarePackage(const std::string& packagePath);

/// What the extraction of an image came to.
struct ImageExtraction {
  ArchiveStatus status = ArchiveSuccess;
  bool complete = false;  ///< whether the file in place holds every byte that the package claims
  bool replaced = false;  ///< whether the package no longer holds the version that was expected
};

/// Extracts the image of a package to `imagePath`. The image is written to a fresh file that only
/// the running user can reach, and takes its place when it is whole: what stood there before is
/// replaced rather than written through, be it a link or anybody's file. After a failure nothing of
/// the package stands there. With an `expectedVersion` an image of any other is a failure too: the
/// package may have been replaced since the user agreed to that version.
ImageExtraction extractFirmwareImage(
    const std::string& packagePath, const std::string& imagePath,
    const ArchiveProgress& progress = {},
    const std::optional<std::string>& expectedVersion = std::nullopt);

/// Removes an image that an earlier update left, so that nothing can take it for a new one.
void removeFirmwareImage(const std::string& imagePath);

}  // namespace corvane
