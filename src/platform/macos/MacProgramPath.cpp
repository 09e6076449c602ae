#include "platform/macos/MacProgramPath.h"

#include <mach-o/dyld.h>

#include <cstdint>
#include <string>
#include <system_error>

namespace corvane::macos {

std::filesystem::path programPath() {
  uint32_t size = 0;
  _NSGetExecutablePath(nullptr, &size);
  std::string path(size, '\0');
  if (_NSGetExecutablePath(path.data(), &size) != 0) return {};
  std::error_code error;
  return std::filesystem::canonical(path.c_str(), error);
}

}  // namespace corvane::macos
