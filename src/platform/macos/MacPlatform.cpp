#include "platform/macos/MacPlatform.h"

#include "platform/macos/MacPaths.h"

namespace corvane::macos {

MacPlatform::MacPlatform(MainQueue& mainQueue, UserPrompts& prompts, Log& log, int commandOutput)
    : dispatch_(mainQueue),
      shell_({}, commandOutput),
      log_(log),
      prompts_(prompts),
      paths_(macPaths()) {}

Platform MacPlatform::platform() {
  return {
      registry_, userClient_, diskArbitration_, runLoops_,      dispatch_, notifications_, shell_,
      scripts_,  bundles_,    systemVersion_,   authorization_, transfer_, log_,           prompts_,
      paths_};
}

void MacPlatform::end() {
  dispatch_.end([this] { runLoops_.stopAll(); });
}

}  // namespace corvane::macos
