#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/SettingChange.h"
#include "cli/answers/CommandOutput.h"
#include "fibre_channel/ArbitratedLoopAddresses.h"
#include "fibre_channel/FibreChannelProtocol.h"

namespace corvane {

namespace {

using nlohmann::ordered_json;

constexpr uint64_t megabitsPerGigabit = 1000;

uint64_t speedTag(const std::string& speed) {
  return speed == "auto" ? speedAutomatic : std::stoull(speed) * megabitsPerGigabit;
}

SettingChange speedChange(AppDelegate& app, const SetOptions& options) {
  const uint64_t tag = speedTag(*options.speed);
  return menuChange(app.controls().setSpeed, static_cast<int64_t>(tag), options,
                    "--speed " + *options.speed, "settingSpeed", tag);
}

SettingChange topologyChange(AppDelegate& app, const SetOptions& options) {
  const uint64_t tag = *options.topology == "loop" ? topologyArbitratedLoop : topologyPointToPoint;
  return menuChange(app.controls().setTopology, static_cast<int64_t>(tag), options,
                    "--topology " + *options.topology, "settingTopology", tag);
}

// Two digits, with or without the prefix; the command line has checked that they are digits.
unsigned addressValue(const std::string& text) {
  return static_cast<unsigned>(std::stoul(text, nullptr, 16));
}

SettingChange addressChange(AppDelegate& app, const SetOptions& options) {
  const std::string what = "--alpa " + *options.alpa;
  const unsigned address = addressValue(*options.alpa);
  const bool isCell = std::find(arbitratedLoopAddresses.begin(), arbitratedLoopAddresses.end(),
                                address) != arbitratedLoopAddresses.end();
  if (app.controls().chooseALPA.isHidden()) refuseSetting(options, what);
  if (!isCell) refuseSetting(options, what, "this is no address of an arbitrated loop");
  MatrixController& matrix = app.matrixController();
  return {what,
          [&matrix, address] {
            matrix.choosePortALPA();
            matrix.selectMatrix(address);
            matrix.selectPortALPA();
          },
          [address](const ordered_json& port) { return port.at("hard_alpa") == address; }};
}

SettingChange menuDepthChange(AppDelegate& app, const SetOptions& options) {
  return menuChange(app.controls().setQueueDepth, *options.queueDepth, options,
                    "--queue-depth " + std::to_string(*options.queueDepth), "queueDepth",
                    *options.queueDepth);
}

SettingChange enteredDepthChange(AppDelegate& app, const SetOptions& options) {
  const std::string entry = std::to_string(*options.queueDepth);
  FCQDepthViewController& sheet = app.queueDepthController();
  sheet.showQDepth();
  const bool accepted = sheet.depthEntry.edit(entry) && *options.queueDepth != 0;
  sheet.cancelWindow();
  if (!accepted) {
    refuseSetting(options, "--queue-depth " + entry, "with --port it is a number from 1 to 254");
  }
  return {"--queue-depth " + entry,
          [&sheet, entry] {
            sheet.showQDepth();
            sheet.depthEntry.edit(entry);
            sheet.setQDepthSetting();
          },
          [depth = *options.queueDepth](const ordered_json& port) {
            return port.at("queueDepth") == depth;
          }};
}

}  // namespace

std::vector<SettingChange> fibreChannelChanges(AppDelegate& app, const SetOptions& options) {
  std::vector<SettingChange> changes;
  if (options.speed) changes.push_back(speedChange(app, options));
  if (options.topology) changes.push_back(topologyChange(app, options));
  if (options.alpa) changes.push_back(addressChange(app, options));
  if (options.queueDepth) {
    changes.push_back(options.port ? enteredDepthChange(app, options)
                                   : menuDepthChange(app, options));
  }
  return changes;
}

}  // namespace corvane
