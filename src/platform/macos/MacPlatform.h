#pragma once

#include "platform/Platform.h"
#include "platform/macos/MacAuthorization.h"
#include "platform/macos/MacBundles.h"
#include "platform/macos/MacDiskArbitration.h"
#include "platform/macos/MacDispatch.h"
#include "platform/macos/MacRegistry.h"
#include "platform/macos/MacRunLoops.h"
#include "platform/macos/MacScriptRunner.h"
#include "platform/macos/MacUserClient.h"
#include "platform/posix/CurlTransfer.h"
#include "platform/posix/LocalNotificationCenter.h"
#include "platform/posix/SystemShell.h"

namespace corvane::macos {

/// This Mac. Owns one of each interface's implementation, save for the log, which the program has
/// chosen; the notifications, which are the process's own, the shell and the transfers are those of
/// any Unix.
class MacPlatform {
 public:
  /// The references outlive the platform. `commandOutput` is the descriptor that the shell's
  /// commands write their output to.
  MacPlatform(MainQueue& mainQueue, UserPrompts& prompts, Log& log, int commandOutput);

  Platform platform();

  /// Stops every run loop and all global work. Main thread.
  void end();

 private:
  MacRegistry registry_;
  MacUserClient userClient_;
  MacDiskArbitration diskArbitration_;
  MacRunLoops runLoops_;
  MacDispatch dispatch_;
  LocalNotificationCenter notifications_;
  SystemShell shell_;
  MacScriptRunner scripts_;
  MacBundles bundles_;
  MacSystemVersion systemVersion_;
  MacAuthorization authorization_;
  CurlTransfer transfer_;
  Log& log_;
  UserPrompts& prompts_;
  const Paths paths_;
};

}  // namespace corvane::macos
