#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/PropertyValue.h"
#include "platform/dump/DumpProblems.h"
#include "platform/dump/DumpText.h"

namespace corvane {

/// How the bytes that a dump keeps of one entry are read. Stateless: any thread may call.
class DumpForm {
 public:
  virtual ~DumpForm() = default;

  /// The texts of the header lie in `keep` or in the entry itself.
  virtual DumpHeader header(std::string_view entry, std::string& keep) const = 0;

  /// All properties. What could not be read is added to `problems`.
  virtual PropertyValue::Dictionary properties(std::string_view entry,
                                               DumpProblems& problems) const = 0;

  /// Whether a text value of the entry may be `text`: false only when it certainly is not.
  virtual bool mayHold(std::string_view entry, std::string_view text) const = 0;

  /// What is left of the text under `key` when the dump was cut within it; else nothing.
  virtual std::optional<std::string_view> cutText(std::string_view entry,
                                                  std::string_view key) const = 0;
};

}  // namespace corvane
