#pragma once

#include "platform/Authorization.h"
#include "platform/Bundles.h"
#include "platform/DiskArbitration.h"
#include "platform/Dispatch.h"
#include "platform/Log.h"
#include "platform/NotificationCenter.h"
#include "platform/Paths.h"
#include "platform/Registry.h"
#include "platform/RunLoop.h"
#include "platform/Shell.h"
#include "platform/Transfer.h"
#include "platform/UserClient.h"
#include "platform/UserPrompts.h"

namespace corvane {

/// Everything of the computer that the system touches, handed to constructors. A set of references:
/// what it refers to outlives everything that holds it. Copying copies the references.
struct Platform {
  Registry& registry;
  UserClient& userClient;
  DiskArbitration& diskArbitration;
  RunLoops& runLoops;
  Dispatch& dispatch;
  NotificationCenter& notifications;
  Shell& shell;
  ScriptRunner& scripts;
  Bundles& bundles;
  SystemVersion& systemVersion;
  Authorization& authorization;
  Transfer& transfer;
  Log& log;
  UserPrompts& prompts;
  const Paths& paths;
};

}  // namespace corvane
