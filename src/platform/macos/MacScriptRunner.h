#pragma once

#include "platform/Shell.h"

namespace corvane::macos {

/// NSAppleScript. Main thread only, as that class demands.
class MacScriptRunner final : public ScriptRunner {
 public:
  ScriptResult run(const std::string& script) override;
  bool asksForPassword() const override { return true; }
};

}  // namespace corvane::macos
