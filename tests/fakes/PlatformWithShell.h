#pragma once

#include "platform/Platform.h"

namespace corvane {

/// The same platform but for the shell, for those who count or change what is run. The references
/// stay the callers'.
inline Platform platformWithShell(const Platform& platform, Shell& shell) {
  return {platform.registry,
          platform.userClient,
          platform.diskArbitration,
          platform.runLoops,
          platform.dispatch,
          platform.notifications,
          shell,
          platform.scripts,
          platform.bundles,
          platform.systemVersion,
          platform.authorization,
          platform.transfer,
          platform.log,
          platform.prompts,
          platform.paths};
}

}  // namespace corvane
