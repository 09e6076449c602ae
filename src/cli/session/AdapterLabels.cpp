#include "cli/session/AdapterLabels.h"

#include <algorithm>
#include <cctype>

#include "Corvane2Info.h"
#include "DeviceMonitorCORVANE2_10GE/Corvane2Device_10GE.h"
#include "DeviceMonitorCORVANE2_8FC/Corvane2Device.h"

namespace corvane {

namespace {

std::string upperCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char each) { return static_cast<char>(std::toupper(each)); });
  return text;
}

/// "B - 2" and "b2" alike become "B2".
std::string shortLabel(const std::string& label) {
  std::string letters = upperCase(label);
  std::erase_if(letters, [](char each) { return each == ' ' || each == '-'; });
  return letters;
}

void addNames(std::vector<std::string>& names, const Corvane2Device& device) {
  names.push_back(device.nodeWWN().value_or(""));
}

void addNames(std::vector<std::string>& names, const Corvane2Device_10GE& device) {
  for (const auto& port : {device.port1(), device.port2()})
    if (port && port->macAddr()) names.push_back(*port->macAddr());
}

std::vector<std::string> namesOf(const DeviceListEntry& entry) {
  std::vector<std::string> names{entry.WWN};
  std::visit([&names](const auto& device) { addNames(names, *device); }, entry.obj);
  if (entry.info) {
    names.push_back(entry.info->port1Info.WWPN);
    names.push_back(entry.info->port2Info.WWPN);
  }
  return names;
}

}  // namespace

bool isNamedBy(const DeviceListEntry& entry, const std::string& label) {
  if (shortLabel(label).empty()) return false;
  if (shortLabel(entry.Sequence) == shortLabel(label)) return true;
  const auto names = namesOf(entry);
  return std::find(names.begin(), names.end(), upperCase(label)) != names.end();
}

bool isNamedBy(const std::string& Sequence, const std::string& WWN, const std::string& label) {
  if (shortLabel(label).empty()) return false;
  return shortLabel(Sequence) == shortLabel(label) || upperCase(WWN) == upperCase(label);
}

std::vector<int64_t> rowsNamedBy(const std::vector<DeviceListEntry>& entries,
                                 const std::string& label) {
  std::vector<int64_t> rows;
  for (size_t row = 0; row < entries.size(); ++row)
    if (isNamedBy(entries[row], label)) rows.push_back(static_cast<int64_t>(row));
  return rows;
}

}  // namespace corvane
