#pragma once

#include "cli/bench-tools/BenchTool.h"

namespace corvane {

/// `corvaneutil`, the maker's tool for the 10GbE adapters:
///
///   corvaneutil INTERFACE getSETTING          prints the driver's setting
///   corvaneutil INTERFACE setSETTING VALUE    changes it until the adapter is unplugged
///   corvaneutil INTERFACE saveConfig          keeps the interface's settings for good
///   corvaneutil all getSETTING                prints the setting of every interface
///
/// Reading prints "RxRingSize=512"; "RSCEnable" is printed as eight hexadecimal digits,
/// "RxRingCount" as a table with columns eight blanks apart, "SFPModule" as the report of the
/// module in the cage. Nothing is printed for a setting that the driver does not know. Writing and
/// saving print nothing. The driver rounds some values and refuses others.
ToolAnswer adapterUtility(const BenchFile& bench, const ToolArguments& arguments);

}  // namespace corvane
