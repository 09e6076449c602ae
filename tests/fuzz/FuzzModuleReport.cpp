#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "CLIParser/toolReports.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const corvane::ModuleReport report = corvane::classifyModule(text);
  if (report.moduleClass < 0 || report.moduleClass > corvane::lastModuleClass) std::abort();
  if (report.moduleClass != 0 && !report.code) std::abort();
  if (report.code && report.code->find(':') != std::string::npos) std::abort();
  const bool named = !corvane::moduleClassName(report.moduleClass).empty();
  if (named != (report.moduleClass > corvane::unknownModuleClass)) std::abort();
  return 0;
}
