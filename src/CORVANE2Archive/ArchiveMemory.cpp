#include "CORVANE2Archive/ArchiveMemory.h"

#include <algorithm>

namespace corvane {

ArchiveBuffer allocateZeroed(std::size_t size) {
  return ArchiveBuffer(static_cast<char*>(std::calloc(std::max<std::size_t>(size, 1), 1)));
}

ArchiveBuffer copyText(std::string_view text) {
  auto copy = allocateZeroed(text.size() + 1);
  if (copy) std::copy(text.begin(), text.end(), copy.get());
  return copy;
}

void complement(char* bytes, std::size_t length) {
  std::transform(bytes, bytes + length, bytes, [](char byte) { return static_cast<char>(~byte); });
}

}  // namespace corvane
