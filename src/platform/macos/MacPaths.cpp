#include "platform/macos/MacPaths.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace corvane::macos {

namespace {

std::string homeFolder() {
  if (const char* home = std::getenv("HOME")) return home;
  const passwd* user = getpwuid(getuid());
  return user != nullptr ? user->pw_dir : "/";
}

}  // namespace

Paths macPaths() {
  return {
      .utilityTool = "/usr/local/bin/corvaneutil",
      .scratchFile = "/private/tmp/corvaneOutput.txt",
      .downloadFolder = "/private/tmp",
      .extractedImage = "/tmp/emulex.grp",
      .transferImage = "/private/tmp/emulex.grp",
      .systemLog = "/var/log/system.log",
      .systemExtensions = "/System/Library/Extensions/",
      .localExtensions = "/Library/Extensions/",
      .home = homeFolder(),
  };
}

}  // namespace corvane::macos
