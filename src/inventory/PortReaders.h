#pragma once

#include <cstdint>

#include "CLIParser/commandAPI.h"
#include "CLIParser/commandBody.h"
#include "CorvaneAPI.h"
#include "inventory/PortReadings.h"
#include "inventory/PortTarget.h"
#include "platform/Platform.h"

/// The one place of each family where a port is looked at, in the order of driver calls and command
/// lines that is laid down for its page.
namespace corvane {

/// What the driver tells of the port in one call, which also fills the properties of `api`. A
/// refused call, or a reply without any name, is no answer. Blocks for one driver call.
Answer<FibreChannelPortInformation> readInformation(CorvaneAPI& api, RegistryHandle service);

/// What a refused call leaves behind in a page: the reading of a reply that is all zeros.
FibreChannelPortInformation zeroInformation();

/// Reads the port, and its module where the driver is not too old for it: `driverFitness` is 0
/// then. Blocks for one to three driver calls.
FibreChannelPortReading readFibreChannelPort(const PortTarget& port, int64_t driverFitness);

/// The same for a port of which there is a registry dump only.
FibreChannelPortReading dumpedFibreChannelPort(const PortTarget& port);

/// Whether a module of that class is for the page of the port to show. A module that the driver
/// does not know is judged by the adapter's first port, any other by the port itself.
bool showsModuleOfClass(const PortTarget& port, int64_t moduleClass);

/// The value that a line of the tool printed, such as "512" in "RxRingSize=512"; why there is none.
Answer<std::string> settingAnswer(const CommandOutcome& outcome);

/// The number that a value of the tool means: decimal, or hexadecimal behind "0x".
int64_t toolNumber(const std::string& value);

/// Reads ports of 10GbE adapters with the adapter's tool and `ifconfig`. Blocks while the command
/// lines run; a tool that hangs is given up after commandTimeLimit. One thread at a time.
class TenGigabitPortReader {
 public:
  /// `command` carries the single requests, `presets` reads the five settings of a preset.
  TenGigabitPortReader(commandBody& command, commandAPI& presets)
      : command_(command), presets_(presets) {}

  /// Reads the port; its settings only where the driver is not too old, `driverFitness` 0. A port
  /// that the driver has not enabled is not asked for anything.
  TenGigabitPortReading read(const PortTarget& port, int64_t driverFitness);

  /// The link and the MTU alone, with a few lines of `ifconfig`, on top of what `last` says. A port
  /// that is not enabled is not asked.
  TenGigabitPortReading readLink(const PortTarget& port, TenGigabitPortReading last);

 private:
  void readSettings(const PortTarget& port, TenGigabitPortReading& reading);
  Answer<int64_t> readModuleClass(const PortTarget& port);
  PresetReading readPreset(const std::string& interfaceName);
  Answer<bool> readChecksumOffload();
  Answer<bool> readReceiveCoalescing();
  void readLinkState(TenGigabitPortReading& reading);

  commandBody& command_;
  commandAPI& presets_;
};

/// What is known of a port before anything is asked: its names, and whether it is enabled.
TenGigabitPortReading unaskedPort(const PortTarget& port);

/// The same for a port of which there is a registry dump only.
TenGigabitPortReading dumpedTenGigabitPort(const PortTarget& port);

}  // namespace corvane
