#include <filesystem>
#include <system_error>

#include "launch/LaunchFailure.h"
#include "launch/LaunchedComputer.h"
#include "platform/dump/DumpPlatform.h"
#include "platform/posix/LocalNotificationCenter.h"
#include "platform/posix/ThreadDispatch.h"
#include "platform/posix/ThreadRunLoops.h"

namespace corvane {

namespace {

constexpr const char* copyright = "Copyright © 2026 Velmar. All rights reserved.";

/// The information dictionary that an installed application has; a plain program carries it here.
class ProgramBundle final : public Bundles {
 public:
  bool exists(const std::string&) override { return false; }
  std::optional<PropertyValue> infoValue(const std::string&, const std::string&) override {
    return std::nullopt;
  }
  std::optional<PropertyValue> mainInfoValue(const std::string& key) override {
    if (key == "CFBundleShortVersionString") return PropertyValue(CORVANE_VERSION);
    if (key == "NSHumanReadableCopyright") return PropertyValue(copyright);
    return std::nullopt;
  }
  std::optional<PropertyValue::Dictionary> resourcePropertyList(const std::string&,
                                                                const std::string&) override {
    return std::nullopt;
  }
};

/// Nothing changes in a dump, so whoever waits for a change waits in vain.
constexpr double dumpClockRate = 1e6;

class LaunchedDump final : public LaunchedComputer {
 public:
  LaunchedDump(SupportMaterial material, const LaunchHost& host)
      : dispatch_(host.mainQueue, dumpClockRate),
        dump_(std::move(material),
              {runLoops_, dispatch_, notifications_, application_, host.log, host.prompts}) {}
  LaunchedDump(const LaunchedDump&) = delete;
  LaunchedDump& operator=(const LaunchedDump&) = delete;
  ~LaunchedDump() override { LaunchedDump::end(); }

  Platform platform() override { return dump_.platform(); }
  bool isReadOnly() const override { return true; }
  std::string remark() const override { return dump_.dump().problems().summary(); }
  void end() override {
    runLoops_.stopAll();
    dispatch_.end();
  }

 private:
  ThreadRunLoops runLoops_;
  ThreadDispatch dispatch_;
  LocalNotificationCenter notifications_;
  ProgramBundle application_;
  DumpPlatform dump_;
};

}  // namespace

std::unique_ptr<LaunchedComputer> openDump(const std::string& path, const LaunchHost& host) {
  std::error_code error;
  if (!std::filesystem::exists(path, error)) {
    throw LaunchFailure(LaunchExitStatus::NotFound, path, "there is no such file or folder",
                        "Name a registry dump or a folder of collected logs.");
  }
  SupportReading reading = openSupportMaterial(path);
  if (!reading.material) {
    throw LaunchFailure(LaunchExitStatus::Failed, path, reading.problem,
                        "Name a registry dump or a folder of collected logs.");
  }
  return std::make_unique<LaunchedDump>(std::move(*reading.material), host);
}

}  // namespace corvane
