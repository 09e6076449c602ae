#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/SettingChange.h"
#include "cli/answers/CommandOutput.h"
#include "cli/session/ModeNames.h"

namespace corvane {

namespace {

using nlohmann::ordered_json;

SettingChange modeChange(AppDelegate& app, const SetOptions& options) {
  const auto* const found = std::find(modeNames.begin(), modeNames.end(), *options.mode);
  const int64_t tag = found - modeNames.begin() + 1;
  return menuChange(app.controls().settingMode, tag, options, "--mode " + *options.mode, "mode",
                    *options.mode);
}

SettingChange checkBoxChange(CheckBox& box, const SetOptions& options, const std::string& option,
                             const std::string& state, const std::string& key) {
  const std::string what = option + " " + state;
  if (box.isHidden()) refuseSetting(options, what);
  if (!box.isEnabled()) refuseSetting(options, what, "the setting is out of use");
  const bool on = state == "on";
  return {what, [&box, on] { box.choose(on); },
          [key, on](const ordered_json& port) { return port.at(key).at("state") == on; }};
}

}  // namespace

std::vector<SettingChange> tenGigabitChanges(AppDelegate& app, const SetOptions& options) {
  std::vector<SettingChange> changes;
  auto& controls = app.controls();
  if (options.mode) changes.push_back(modeChange(app, options));
  if (options.checksum) {
    changes.push_back(checkBoxChange(controls.enableTCPipv4, options, "--checksum",
                                     *options.checksum, "tcpipv4"));
  }
  if (options.rsc) {
    changes.push_back(checkBoxChange(controls.enableRSC, options, "--rsc", *options.rsc, "rsc"));
  }
  return changes;
}

}  // namespace corvane
