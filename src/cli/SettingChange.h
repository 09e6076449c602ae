#pragma once

#include <cstdint>
#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <vector>

#include "AppDelegate.h"

namespace corvane {

/// What `set` was told to change. Texts are as typed.
struct SetOptions {
  std::string label;
  std::optional<int64_t> port;
  std::optional<std::string> speed;
  std::optional<std::string> topology;
  std::optional<std::string> alpa;
  std::optional<uint32_t> queueDepth;
  std::optional<std::string> mode;
  std::optional<std::string> checksum;
  std::optional<std::string> rsc;

  bool concernsFibreChannel() const { return speed || topology || alpa || queueDepth; }
  bool concernsTenGigabit() const { return mode || checksum || rsc; }
};

/// One choice in a control of the page on show.
struct SettingChange {
  std::string what;             ///< the option and its value, such as "--speed 8"
  std::function<void()> apply;  ///< chooses as the user would
  /// Whether the port, as `show` prints it, has the setting now.
  std::function<bool(const nlohmann::ordered_json& port)> isTaken;
};

/// The changes that the options ask of the adapter whose port page is on show. Each throws
/// CommandFailure when the page does not offer one of them; nothing has been changed by then.
std::vector<SettingChange> fibreChannelChanges(AppDelegate& app, const SetOptions& options);
std::vector<SettingChange> tenGigabitChanges(AppDelegate& app, const SetOptions& options);

/// The change that choosing the item with that tag makes; it is taken when the port's field `key`
/// is `expected`. Throws CommandFailure when the menu does not offer the item or is out of use.
SettingChange menuChange(PopUpButton& menu, int64_t tag, const SetOptions& options,
                         const std::string& what, const std::string& key,
                         const nlohmann::ordered_json& expected);

/// Throws CommandFailure: the page does not offer `what`.
[[noreturn]] void refuseSetting(const SetOptions& options, const std::string& what,
                                const std::string& reason = "this adapter does not offer it");

}  // namespace corvane
