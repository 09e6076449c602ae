#include <utility>

#include "platform/dump/RegistryDumpBuilder.h"

namespace corvane {

namespace {

class TextForm : public DumpForm {
 public:
  DumpHeader header(std::string_view entry, std::string&) const override {
    return readDumpHeader(entry);
  }

  PropertyValue::Dictionary properties(std::string_view entry,
                                       DumpProblems& problems) const override {
    return readDumpProperties(entry, problems);
  }

  /// Texts are printed as they are.
  bool mayHold(std::string_view entry, std::string_view text) const override {
    return entry.find(text) != std::string_view::npos;
  }

  std::optional<std::string_view> cutText(std::string_view entry,
                                          std::string_view key) const override {
    if (entry.find('$') == std::string_view::npos) return std::nullopt;
    return findCutDumpText(entry, key);
  }
};

}  // namespace

DumpReading readTextDump(std::string bytes) {
  RegistryDumpBuilder builder;
  DumpTextScanner scanner(bytes);
  bool empty = true;
  while (const std::optional<DumpTextEntry> entry = scanner.next()) {
    builder.add(entry->begin, entry->end, entry->depth);
    empty = false;
  }
  const bool blank = bytes.find_first_not_of(" \t\r\n") == std::string::npos;
  if (empty && !blank) return {std::nullopt, "It holds no entry of a device registry."};
  return {builder.finish(std::move(bytes), std::make_unique<TextForm>(), scanner.problems()), {}};
}

}  // namespace corvane
