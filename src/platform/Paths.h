#pragma once

#include <string>

namespace corvane {

/// The fixed places of the file system. On a Mac each is the text in its comment; a bench holds
/// them in a folder of its own. All are absolute and end without "/" unless shown.
struct Paths {
  std::string utilityTool;       ///< "/usr/local/bin/corvaneutil"
  std::string scratchFile;       ///< "/private/tmp/corvaneOutput.txt"
  std::string downloadFolder;    ///< "/private/tmp"
  std::string extractedImage;    ///< "/tmp/emulex.grp"
  std::string transferImage;     ///< "/private/tmp/emulex.grp", the same file by its real folder
  std::string systemLog;         ///< "/var/log/system.log"
  std::string systemExtensions;  ///< "/System/Library/Extensions/"
  std::string localExtensions;   ///< "/Library/Extensions/"
  std::string home;              ///< the user's home folder, what the shell expands "~" to
};

/// The folder of the utility's own records in the user's home. It may not be there yet.
inline std::string applicationSupport(const Paths& paths) {
  return paths.home + "/Library/Application Support/Corvane Utility";
}

}  // namespace corvane
