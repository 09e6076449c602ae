#pragma once

#include "FakeAuthorization.h"
#include "FakeBundles.h"
#include "FakeDiskArbitration.h"
#include "FakeLog.h"
#include "FakeNotificationCenter.h"
#include "FakePrompts.h"
#include "FakeRegistry.h"
#include "FakeRunLoops.h"
#include "FakeShell.h"
#include "FakeTransfer.h"
#include "FakeUserClient.h"
#include "platform/Platform.h"

namespace corvane {

/// The fixed places as they are on a Mac.
inline Paths macPaths() {
  Paths paths;
  paths.utilityTool = "/usr/local/bin/corvaneutil";
  paths.scratchFile = "/private/tmp/corvaneOutput.txt";
  paths.downloadFolder = "/private/tmp";
  paths.extractedImage = "/tmp/emulex.grp";
  paths.transferImage = "/private/tmp/emulex.grp";
  paths.systemLog = "/var/log/system.log";
  paths.systemExtensions = "/System/Library/Extensions/";
  paths.localExtensions = "/Library/Extensions/";
  paths.home = "/Users/tester";
  return paths;
}

/// A whole computer made of fakes, around the dispatch that the test brings. The paths can be
/// changed before a platform is taken of it.
class FakePlatform {
 public:
  explicit FakePlatform(Dispatch& dispatch) : dispatch_(dispatch) {}

  FakeRegistry registry;
  FakeUserClient userClient;
  FakeDiskArbitration diskArbitration;
  FakeRunLoops runLoops;
  FakeNotificationCenter notifications;
  FakeShell shell;
  FakeScriptRunner scripts;
  FakeBundles bundles;
  FakeSystemVersion systemVersion;
  FakeAuthorization authorization;
  FakeTransfer transfer;
  FakeLog log;
  FakePrompts prompts;
  Paths paths = macPaths();

  Platform platform() {
    return {registry, userClient, diskArbitration, runLoops,      dispatch_, notifications, shell,
            scripts,  bundles,    systemVersion,   authorization, transfer,  log,           prompts,
            paths};
  }

 private:
  Dispatch& dispatch_;
};

}  // namespace corvane
