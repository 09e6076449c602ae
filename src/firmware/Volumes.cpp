#include "firmware/Volumes.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <functional>
#include <memory>

namespace corvane {

namespace {

using DiskRequest = void (DiskSession::*)(Disk&, DiskRequestCallback, void*);

// Whether a disk was refused changes nothing: the transfer goes on, and the user sees the volumes.
void DiskfunctionCallback(Disk& /*disk*/, bool /*refused*/, void* /*context*/) {}

void requestForEach(DiskArbitration& diskArbitration, const std::vector<std::string>& names,
                    DiskRequest request, const std::function<void(const std::string&)>& requested) {
  const std::unique_ptr<DiskSession> session = diskArbitration.createSession();
  if (!session) return;
  for (const std::string& name : names) {
    if (const std::unique_ptr<Disk> disk = session->createDisk(name)) {
      ((*session).*request)(*disk, DiskfunctionCallback, nullptr);
    }
    requested(name);
  }
}

}  // namespace

Volumes::Volumes(const Platform& platform)
    : diskArbitration_(platform.diskArbitration),
      log_(platform.log),
      record_(applicationSupport(platform.paths) + "/unmounted-volumes") {}

void Volumes::unmountAllVolume(const std::vector<std::string>& names) {
  if (!record_.add(names)) {
    log_.system("Could not note which volumes are unmounted for the firmware update");
  }
  requestForEach(diskArbitration_, names, &DiskSession::unmount, [](const std::string&) {});
}

void Volumes::mountAllVolume(const std::vector<std::string>& names) {
  requestForEach(diskArbitration_, names, &DiskSession::mount,
                 [this](const std::string& name) { record_.remove({name}); });
}

std::vector<std::string> Volumes::tellLeftUnmounted() {
  leftUnmounted_ = record_.takeLeftBehind();
  if (!leftUnmounted_.empty()) {
    log_.system(
        fmt::format("A firmware update did not end; these volumes may still be unmounted: {}",
                    fmt::join(leftUnmounted_, ", ")));
  }
  return leftUnmounted_;
}

std::string leftUnmountedNote(const std::vector<std::string>& names) {
  if (names.empty()) return {};
  std::string note = "a firmware update did not end; these volumes may still be unmounted:";
  for (const std::string& name : names) note += " " + name;
  return note;
}

}  // namespace corvane
