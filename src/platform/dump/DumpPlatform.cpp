#include "platform/dump/DumpPlatform.h"

#include <utility>

namespace corvane {

namespace {

/// The fixed places of a Mac, save for those that would be opened on the computer at hand: what is
/// read back from them is empty and what is written to them is lost.
Paths unreachablePaths() {
  constexpr const char* emptyFile = "/dev/null";
  Paths paths;
  paths.utilityTool = "/usr/local/bin/corvaneutil";
  paths.scratchFile = emptyFile;
  paths.downloadFolder = emptyFile;
  paths.extractedImage = emptyFile;
  paths.transferImage = emptyFile;
  paths.systemLog = emptyFile;
  paths.systemExtensions = "/System/Library/Extensions/";
  paths.localExtensions = "/Library/Extensions/";
  paths.home = emptyFile;
  return paths;
}

}  // namespace

DumpPlatform::DumpPlatform(SupportMaterial material, const DumpHost& host)
    : material_(std::move(material)),
      host_(host),
      paths_(unreachablePaths()),
      log_(host.log),
      registry_(material_.dump),
      bundles_(material_.dump, material_.profile, host.application),
      systemVersion_(material_.profile) {}

Platform DumpPlatform::platform() {
  return {
      .registry = registry_,
      .userClient = userClient_,
      .diskArbitration = diskArbitration_,
      .runLoops = host_.runLoops,
      .dispatch = host_.dispatch,
      .notifications = host_.notifications,
      .shell = shell_,
      .scripts = scripts_,
      .bundles = bundles_,
      .systemVersion = systemVersion_,
      .authorization = authorization_,
      .transfer = transfer_,
      .log = log_,
      .prompts = host_.prompts,
      .paths = paths_,
  };
}

}  // namespace corvane
