#include "platform/bench/BenchPlatform.h"

#include <filesystem>

#include "platform/bench/BenchDiskArbitration.h"
#include "platform/bench/BenchRegistry.h"
#include "platform/bench/BenchSystem.h"
#include "platform/bench/BenchUserClient.h"
#include "platform/bench/file/BenchFolder.h"
#include "platform/posix/CurlTransfer.h"
#include "platform/posix/LocalNotificationCenter.h"
#include "platform/posix/SystemShell.h"
#include "platform/posix/ThreadDispatch.h"

namespace corvane {

namespace {

constexpr const char* utilityTool = "corvaneutil";

/// What commands see: the bench's home, temporary folder and tools, and which bench it is.
SystemShell::Environment shellEnvironment(const BenchFile& file, const Paths& paths,
                                          const std::string& toolsFolder) {
  const std::string ownTools = std::filesystem::path(paths.utilityTool).parent_path().string();
  const std::string sharedTools = toolsFolder.empty() ? "" : toolsFolder + ":";
  return {{"HOME", paths.home},
          {"TMPDIR", paths.downloadFolder},
          {"PATH", ownTools + ":" + sharedTools + "/usr/bin:/bin"},
          {benchVariable, file.path()}};
}

CurlTransferOptions transferOptions() {
  CurlTransferOptions options;
  options.allowsFiles = true;
  return options;
}

}  // namespace

struct BenchPlatform::Parts {
  Parts(const std::string& path, MainQueue& mainQueue, UserPrompts& prompts, Log& outerLog,
        const BenchPlatformOptions& options)
      : toolsFolder(options.toolsFolder),
        machine(path, options.clock, outerLog),
        folder(machine.file()),
        paths(folder.paths()),
        log(outerLog, paths.systemLog),
        dispatch(mainQueue, machine.state()->clockRate),
        shell(shellEnvironment(machine.file(), paths, toolsFolder), options.standardOutput),
        network(transferOptions()),
        registry(machine),
        userClient(machine, registry, dispatch, log),
        disks(machine),
        scripts(machine, shell),
        bundles(machine, paths, options.samplesFolder),
        systemVersion(machine),
        authorization(machine),
        transfer(machine, network),
        platform{registry,      userClient, disks,   runLoops, dispatch,
                 notifications, shell,      scripts, bundles,  systemVersion,
                 authorization, transfer,   log,     prompts,  paths} {
    arrangeFiles(*machine.state());
    machine.observe([this](const BenchState& state) { arrangeFiles(state); });
    machine.watch(options.watchInterval);
  }

  ~Parts() { end(); }

  void end() {
    machine.stopWatching();
    runLoops.stopAll();
    dispatch.end();
  }

  /// Brings the files into the shape that the faults ask for.
  void arrangeFiles(const BenchState& state) {
    const bool isMissing = toolsFolder.empty() || state.hasFault("tool-missing");
    try {
      folder.placeTool(utilityTool, isMissing ? "" : toolsFolder + "/" + utilityTool);
      folder.blockScratchFile(state.hasFault("scratch-unwritable"));
    } catch (const BenchFileError& error) {
      log.system(error.what());
    }
  }

  const std::string toolsFolder;
  BenchMachine machine;
  const BenchFolder folder;
  const Paths paths;
  BenchLog log;
  LocalNotificationCenter notifications;
  ThreadRunLoops runLoops;
  ThreadDispatch dispatch;
  SystemShell shell;
  CurlTransfer network;
  BenchRegistry registry;
  BenchUserClient userClient;
  BenchDiskArbitration disks;
  BenchScriptRunner scripts;
  BenchBundles bundles;
  BenchSystemVersion systemVersion;
  BenchAuthorization authorization;
  BenchTransfer transfer;
  const Platform platform;
};

BenchPlatform::BenchPlatform(const std::string& path, MainQueue& mainQueue, UserPrompts& prompts,
                             Log& log, const BenchPlatformOptions& options)
    : parts_(std::make_unique<Parts>(path, mainQueue, prompts, log, options)) {}

BenchPlatform::~BenchPlatform() = default;

const Platform& BenchPlatform::platform() const {
  return parts_->platform;
}

const BenchFile& BenchPlatform::file() const {
  return parts_->machine.file();
}

void BenchPlatform::setPasswordPrompt(std::function<bool()> ask) {
  parts_->authorization.setPasswordPrompt(std::move(ask));
}

void BenchPlatform::end() {
  parts_->end();
}

}  // namespace corvane
