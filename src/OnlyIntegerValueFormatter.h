#pragma once

#include <string>

#include "platform/UserPrompts.h"

namespace corvane {

/// Lets an entry field hold at most four characters and a whole number of at most 254. A negative
/// number passes; a number of 0 is for the field's controller to refuse.
class OnlyIntegerValueFormatter {
 public:
  explicit OnlyIntegerValueFormatter(UserPrompts& prompts) : prompts_(prompts) {}

  /// Whether the field may hold `partialString`, the whole text that an edit would leave. Too long
  /// a text or too large a number is refused in silence, what is no number with the system beep.
  /// Main thread.
  bool isPartialStringValid(const std::string& partialString) const;

 private:
  UserPrompts& prompts_;
};

}  // namespace corvane
