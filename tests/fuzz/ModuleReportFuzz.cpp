// Any bytes as what the adapter's tool prints of a module.

#include <cstddef>
#include <cstdint>

#include "CLIParser/toolReports.h"
#include "fuzz/Require.h"

using namespace corvane;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const ModuleReport report = classifyModule(text);
  fuzz::require(report.moduleClass >= 0 && report.moduleClass <= lastModuleClass, "a known class");
  fuzz::require(report.moduleClass == 0 || report.code, "a class comes of a code");
  fuzz::require(!report.code || report.code->find(':') == std::string::npos,
                "a code is what follows the colon");
  const bool named = !moduleClassName(report.moduleClass).empty();
  fuzz::require(named == (report.moduleClass > unknownModuleClass), "known modules have names");
  return 0;
}
