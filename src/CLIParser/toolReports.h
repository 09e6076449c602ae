#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "text/WholeNumber.h"

/// What the adapter utility and `ifconfig` print, taken apart. Pure functions of the text that a
/// command left in the scratch file; any text is accepted, none is trusted.
namespace corvane {

/// The value in a report such as "RxRingSize=512\n": what stands between the first "=" and the
/// second one or the end, line ends included. Nothing when there is no "=".
std::optional<std::string> settingValue(std::string_view report);

/// The receive ring count in the utility's table. A line that contains `nicName` holds it in its
/// third column; columns are told apart by runs of exactly eight blanks. The last such line that
/// has a third column decides; 0 when there is none.
int64_t receiveRingCount(std::string_view table, std::string_view nicName);

/// What the utility reports about the transceiver module in a port.
struct ModuleReport {
  /// 0 no usable report, 1 unknown to the driver, 2 to 10 a known kind (moduleClassName).
  int64_t moduleClass = 0;
  /// What stands between the first ":" and the second one or the end; nothing without a ":".
  std::optional<std::string> code;
};

/// Classifies a report such as "SFPModule: srlr\n" by the first code word that it contains.
ModuleReport classifyModule(std::string_view report);

/// The name that the user sees for the module classes 2 to 10; empty for every other class.
std::string_view moduleClassName(int64_t moduleClass);

/// The smallest and the largest module class that a report can have.
inline constexpr int64_t firstModuleClass = 1;
inline constexpr int64_t lastModuleClass = 10;

/// The class of a module that the driver does not know.
inline constexpr int64_t unknownModuleClass = 1;

/// The state of a link, by the numbers that `commandBody::getNICstatus` returns.
enum class LinkState : int64_t { NoLink = 0, Link = 1, Unknown = 2 };

/// The state in the status lines of `ifconfig`. Anything but the one exact line is Unknown.
LinkState linkState(std::string_view statusLines);

/// The MTU in the output of `ifconfig`: the number behind the first "mtu"; 0 when there is none.
int64_t interfaceMTU(std::string_view interfaceReport);

/// The medium named in the output of `ifconfig`, in the spelling that the user sees, or "Unknow".
/// Where several media are named the order of the search decides, not that of the text.
std::string_view interfaceMedium(std::string_view interfaceReport);

}  // namespace corvane
