#include "cli/session/DumpReport.h"

#include <initializer_list>
#include <nlohmann/json.hpp>
#include <string>

#include "pages/DumpPages.h"

namespace corvane {

namespace {

using nlohmann::ordered_json;

void forget(ordered_json& fields, std::initializer_list<const char*> keys) {
  for (const char* key : keys)
    if (fields.contains(key)) fields[key] = nullptr;
}

/// Texts that the pages say are missing.
void forgetMissing(ordered_json& fields) {
  for (auto& field : fields)
    if (field == notInDump) field = nullptr;
}

void forgetDriver(ordered_json& port) {
  forgetMissing(port);
  forget(port, {"settingSpeed", "settingTopology", "linkState", "pcivendor", "pcidevice",
                "hard_alpa", "queueDepth", "MTU", "mode"});
  if (port.contains("sfp"))
    for (auto& field : port["sfp"].items())
      if (field.key() != "infoEnabled") field.value() = nullptr;
  for (const char* setting : {"tcpipv4", "rsc"}) {
    if (!port.contains(setting)) continue;
    port[setting]["state"] = nullptr;
    port[setting]["enabled"] = false;
  }
  if (port.contains("settingModeEnabled")) port["settingModeEnabled"] = false;
  if (port.contains("module")) forget(port["module"], {"class", "name", "warning"});
}

}  // namespace

void keepWhatDumpTells(ordered_json& entry) {
  if (entry.at("family") == "FC") forget(entry, {"Version"});
}

void keepWhatDumpTellsOfAdapter(ordered_json& adapter) {
  forgetMissing(adapter["device"]);
  forget(adapter["device"], {"queueDepth"});
  for (auto& port : adapter["ports"]) forgetDriver(port);
}

void nameWhatIsMissing(ordered_json& fields) {
  if (fields.is_null()) fields = notInDump;
  if (!fields.is_structured()) return;
  for (auto& field : fields) nameWhatIsMissing(field);
}

}  // namespace corvane
