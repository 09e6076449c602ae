#include "cli/session/Session.h"

#include "changes/ChangeSender.h"
#include "firmware/Volumes.h"

namespace corvane {

Session::Session(CommandContext& context, const LaunchOptions& options, SessionPurpose purpose)
    : CommandPlatform(context, options),
      inventory_(std::make_unique<DeviceInventory>(platform(), list_)),
      rights_(platform()),
      reader_(platform(), isDump() ? ReadingSource::Dump : ReadingSource::Computer) {
  if (purpose == SessionPurpose::Looking) rights_.askNothing();
  if (isDump()) inventory_->expectNoDriver();
}

Session::~Session() {
  inventory_.reset();
  end();
}

void Session::launch() {
  rights_.setUp();
  inventory_->observeMonitors();
  if (!rights_.giveTool()) rights_.setUp();
  inventory_->startMonitors();
}

void Session::discover() {
  waitForAdapters(*inventory_, [this] {
    launch();
    tellLeftUnmounted();
  });
}

void Session::tellLeftUnmounted() {
  const std::string sentence = leftUnmountedNote(Volumes(platform()).tellLeftUnmounted());
  if (!sentence.empty()) printNote(context(), sentence);
}

Answer<int64_t> Session::change(const PortTarget& port, const SettingWish& wish) {
  if (wish.setting == Setting::Mode) {
    commandAPI presets(platform().shell, platform().paths);
    return applyMode(port, wish, presets);
  }
  commandBody command(platform().shell, platform().paths);
  return sendToTool(port, wish, command);
}

PortTarget Session::port(const DeviceListEntry& adapter, int64_t number) const {
  if (auto target = PortTarget::of(adapter, number)) return *target;
  throw CommandFailure(ExitStatus::Failed, adapter.Sequence, "the adapter has gone",
                       "Nothing was changed.");
}

}  // namespace corvane
