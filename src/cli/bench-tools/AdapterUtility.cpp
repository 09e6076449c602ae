#include "cli/bench-tools/AdapterUtility.h"

#include <fmt/format.h>

#include <array>
#include <bit>
#include <optional>
#include <string_view>

#include "text/WholeNumber.h"

namespace corvane {

namespace {

constexpr const char* driver = "Corvane2-10GE";
constexpr const char* moduleSetting = "SFPModule";
constexpr const char* usage =
    "usage: corvaneutil INTERFACE getSETTING | setSETTING VALUE | saveConfig\n"
    "       corvaneutil all getSETTING";

enum class SettingForm { Decimal, Hexadecimal, Table };
enum class Rounding { None, MultipleOfEight, PowerOfTwo };

struct DriverSetting {
  std::string_view name;
  int64_t smallest;
  int64_t largest;
  SettingForm form = SettingForm::Decimal;
  Rounding rounding = Rounding::None;
};

constexpr std::array driverSettings = {
    DriverSetting{"RxIntrThrottle", 1000, 488281},
    DriverSetting{"RxRingSize", 64, 4096, SettingForm::Decimal, Rounding::MultipleOfEight},
    DriverSetting{"RxRingCount", 1, 8, SettingForm::Table, Rounding::PowerOfTwo},
    DriverSetting{"TxIntrThrottle", 1000, 488281},
    DriverSetting{"TxRingSize", 64, 4096, SettingForm::Decimal, Rounding::MultipleOfEight},
    DriverSetting{"TCPipv4ChecksumEnable", 1, 2},
    DriverSetting{"RSCEnable", 0, 1, SettingForm::Hexadecimal},
};

const DriverSetting* findSetting(std::string_view name) {
  for (const DriverSetting& setting : driverSettings) {
    if (setting.name == name) return &setting;
  }
  return nullptr;
}

/// The value that the driver uses when it is asked for `value`; downwards, as it has room for.
int64_t rounded(int64_t value, Rounding rounding) {
  switch (rounding) {
    case Rounding::MultipleOfEight:
      return value - value % 8;
    case Rounding::PowerOfTwo:
      return static_cast<int64_t>(std::bit_floor(static_cast<uint64_t>(value)));
    case Rounding::None:
      break;
  }
  return value;
}

std::string settingTable(const std::string& interface, const DriverSetting& setting,
                         int64_t value) {
  constexpr std::string_view gap = "        ";
  return fmt::format("{0}{1}Setting{1}Value\n{0}{1}{2}{1}{3}\n", interface, gap, setting.name,
                     value);
}

std::string settingReport(const std::string& interface, const DriverSetting& setting,
                          int64_t value) {
  switch (setting.form) {
    case SettingForm::Hexadecimal:
      return fmt::format("{}=0x{:08x}\n", setting.name, value);
    case SettingForm::Table:
      return settingTable(interface, setting, value);
    case SettingForm::Decimal:
      break;
  }
  return fmt::format("{}={}\n", setting.name, value);
}

/// What `get` prints for one port: nothing when the driver does not know the setting.
std::string report(const BenchEthernetPort& port, const std::string& name) {
  if (name == moduleSetting) {
    return port.module.empty() ? "" : fmt::format("{}: {}\n", moduleSetting, port.module);
  }
  const DriverSetting* setting = findSetting(name);
  const auto found = port.settings.find(name);
  if (!setting || found == port.settings.end()) return {};
  return settingReport(*port.interface, *setting, found->second);
}

/// Calls `visit` for each port that the driver runs.
template <typename State, typename Visitor>
void forEachPort(State& state, Visitor visit) {
  if (state.drivers.count(driver) == 0) return;
  for (auto& adapter : state.adapters) {
    if (!adapter.attached) continue;
    for (auto& port : adapter.ethernetPorts) {
      if (port.enabled && port.interface) visit(port);
    }
  }
}

ToolAnswer get(const BenchState& state, const std::string& interface, const std::string& name) {
  const bool isForAll = interface == "all";
  bool isKnownInterface = isForAll;
  ToolAnswer answer;
  forEachPort(state, [&](const BenchEthernetPort& port) {
    if (!isForAll && *port.interface != interface) return;
    isKnownInterface = true;
    answer.output += report(port, name);
  });
  if (!isKnownInterface) return refusal("corvaneutil: no such interface: " + interface);
  answer.status = answer.output.empty() ? 1 : 0;
  return answer;
}

/// Lets `change` alter the port of that interface; it answers for the tool.
template <typename Change>
ToolAnswer changePort(const BenchFile& bench, const std::string& interface, Change change) {
  ToolAnswer answer = refusal("corvaneutil: no such interface: " + interface);
  bench.update([&](BenchState& state) {
    forEachPort(state, [&](BenchEthernetPort& port) {
      if (*port.interface == interface) answer = change(port);
    });
  });
  return answer;
}

ToolAnswer set(const BenchFile& bench, const std::string& interface, const std::string& name,
               const std::string& value) {
  const DriverSetting* setting = findSetting(name);
  const auto number = plainNumber(value);
  return changePort(bench, interface, [&](BenchEthernetPort& port) -> ToolAnswer {
    if (!setting || port.settings.count(name) == 0) {
      return refusal(fmt::format("corvaneutil: {}: the driver has no setting {}", interface, name));
    }
    if (!number || *number < setting->smallest || *number > setting->largest) {
      return refusal(fmt::format("corvaneutil: {}: {} is no value for {}: it takes {} to {}",
                                 interface, value, name, setting->smallest, setting->largest));
    }
    port.settings[name] = rounded(*number, setting->rounding);
    return {};
  });
}

ToolAnswer save(const BenchFile& bench, const std::string& interface) {
  return changePort(bench, interface, [](BenchEthernetPort& port) -> ToolAnswer {
    port.savedSettings = port.settings;
    return {};
  });
}

ToolAnswer carryOut(const BenchFile& bench, const BenchState& state,
                    const ToolArguments& arguments) {
  const size_t count = arguments.size();
  const std::string verb = count > 1 ? arguments[1].substr(0, 3) : "";
  if (count == 2 && verb == "get") return get(state, arguments[0], arguments[1].substr(3));
  if (count == 3 && verb == "set") {
    return set(bench, arguments[0], arguments[1].substr(3), arguments[2]);
  }
  if (count == 2 && arguments[1] == "saveConfig") return save(bench, arguments[0]);
  return refusal(usage, 2);
}

/// What a shell says when the tool is not installed.
ToolAnswer missingTool() {
  return refusal("sh: corvaneutil: No such file or directory", 127);
}

/// A tool that has lost its mind: no text, half a report, and a lot of it.
ToolAnswer rubbish() {
  static constexpr char piece[] =
      "\0\xFF\xFE=:\n:=\x80 mtu 99999999999999999999 =RxRingSize:Unknown";
  std::string text(piece, sizeof piece - 1);
  for (int doubling = 0; doubling < 10; ++doubling) text += text;
  return {.output = text, .status = 139};
}

}  // namespace

ToolAnswer adapterUtility(const BenchFile& bench, const ToolArguments& arguments) {
  const BenchState state = readBench(bench);
  if (state.hasFault("tool-missing")) return missingTool();
  if (state.hasFault("tool-hangs")) return {.hangs = true};
  if (state.hasFault("tool-rubbish")) return rubbish();
  return carryOut(bench, state, arguments);
}

}  // namespace corvane
