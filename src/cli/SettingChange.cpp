#include "cli/SettingChange.h"

#include <nlohmann/json.hpp>

#include "cli/answers/CommandOutput.h"

namespace corvane {

using nlohmann::ordered_json;

void refuseSetting(const SetOptions& options, const std::string& what, const std::string& reason) {
  throw CommandFailure(ExitStatus::Failed, options.label, what + ": " + reason,
                       "\"corvane show\" prints what the adapter offers. Nothing was changed.");
}

namespace {

size_t offeredIndex(const PopUpButton& menu, int64_t tag, const SetOptions& options,
                    const std::string& what) {
  const auto& items = menu.items();
  for (size_t index = 0; index < items.size(); ++index) {
    if (items[index].tag == tag && !items[index].hidden) return index;
  }
  refuseSetting(options, what);
}

}  // namespace

SettingChange menuChange(PopUpButton& menu, int64_t tag, const SetOptions& options,
                         const std::string& what, const std::string& key,
                         const ordered_json& expected) {
  const size_t index = offeredIndex(menu, tag, options, what);
  if (!menu.isEnabled()) refuseSetting(options, what, "the setting is out of use");
  return {what, [&menu, index] { menu.choose(index); },
          [key, expected](const ordered_json& port) { return port.at(key) == expected; }};
}

}  // namespace corvane
