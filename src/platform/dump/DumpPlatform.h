#pragma once

#include "platform/Platform.h"
#include "platform/dump/DumpBundles.h"
#include "platform/dump/DumpRegistry.h"
#include "platform/dump/InertPlatform.h"
#include "platform/dump/SupportFolder.h"

namespace corvane {

/// What a dump cannot give and every program has of its own: threads, notifications, log, prompts
/// and the application's information.
struct DumpHost {
  RunLoops& runLoops;
  Dispatch& dispatch;
  NotificationCenter& notifications;
  Bundles& application;
  Log& log;
  UserPrompts& prompts;
};

/// The computer in a registry dump as a platform: its registry answers, everything else refuses.
/// Nothing can be changed, no command is run and no driver is called.
class DumpPlatform {
 public:
  /// What the host refers to outlives the platform.
  DumpPlatform(SupportMaterial material, const DumpHost& host);
  DumpPlatform(const DumpPlatform&) = delete;
  DumpPlatform& operator=(const DumpPlatform&) = delete;

  /// Valid as long as this object lives.
  Platform platform();

  const RegistryDump& dump() const { return material_.dump; }
  const std::filesystem::path& dumpFile() const { return material_.dumpFile; }

 private:
  const SupportMaterial material_;
  const DumpHost host_;
  const Paths paths_;
  DriverlessLog log_;
  DumpRegistry registry_;
  DumpBundles bundles_;
  DumpSystemVersion systemVersion_;
  InertUserClient userClient_;
  InertDiskArbitration diskArbitration_;
  InertShell shell_;
  InertScriptRunner scripts_;
  InertAuthorization authorization_;
  InertTransfer transfer_;
};

}  // namespace corvane
