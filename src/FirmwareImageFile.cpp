#include "FirmwareImageFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace corvane {

namespace {

bool isOwnPlainFile(int descriptor) {
  struct stat status {};
  return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == geteuid();
}

}  // namespace

OpenFile openFirmwareImage(const std::string& path) {
  // Without O_NONBLOCK a pipe at that place would hold up the caller for good.
  const int descriptor = open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (descriptor < 0) return nullptr;
  std::FILE* file = isOwnPlainFile(descriptor) ? fdopen(descriptor, "rb") : nullptr;
  if (!file) close(descriptor);
  return OpenFile(file);
}

}  // namespace corvane
