// A tag name, a zero byte, a text: the element must be what plain searches find.

#include <cstdint>
#include <cstdlib>

#include "CORVANE2Archive/VelmarArchive.h"
#include "fuzz/Require.h"
#include "fuzz/TakenText.h"

using namespace corvane;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string_view input(reinterpret_cast<const char*>(data), size);
  const auto name = fuzz::takeText(input);
  const auto text = fuzz::takeText(input);

  const auto open = text.find("<" + name + ">");
  const auto close = text.find("</" + name + ">");
  const auto begin = open + name.size() + 2;
  const bool present = open != std::string::npos && close != std::string::npos && begin <= close;

  char* element = nullptr;
  const auto status = _xmlParse_element(text.c_str(), name.c_str(), &element);
  fuzz::require(status == (present ? ArchiveSuccess : ArchiveFileIdNotFound), "element status");
  if (present) fuzz::require(text.substr(begin, close - begin) == element, "element text");
  std::free(element);
  return 0;
}
