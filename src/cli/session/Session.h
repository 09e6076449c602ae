#pragma once

#include <string>

#include "changes/SettingChange.h"
#include "cli/session/CommandPlatform.h"
#include "inventory/AdapterReader.h"
#include "inventory/DeviceInventory.h"
#include "support/AdministratorRights.h"

namespace corvane {

/// The adapters for one command that finds some, reads them and changes them: no pages, nothing on
/// show. Made by the command once it runs. Main thread only.
class Session : public CommandPlatform {
 public:
  /// Throws CommandFailure when there is nothing to run on. Both outlive the session.
  Session(CommandContext& context, const LaunchOptions& options,
          SessionPurpose purpose = SessionPurpose::Changing);

  /// Stops the monitors and waits until nothing goes on in the background.
  ~Session();

  DeviceInventory& inventory() { return *inventory_; }
  AdapterReader& reader() { return reader_; }

  /// Starts to follow the adapters. The administrator's right is named, and the adapter's tool
  /// given its rights, on the way.
  void launch();

  /// Launches, and returns once the adapters that are attached are listed, as
  /// CommandPlatform::waitForAdapters().
  void discover();

  /// As CommandPlatform::requireMonitors().
  void requireMonitors() const { CommandPlatform::requireMonitors(*inventory_); }

  /// The adapters listed, in display order.
  std::vector<DeviceListEntry> adapters() const { return list_.entries(); }

  /// The adapter that LABEL names, as it is attached now. Throws CommandFailure when it fits none
  /// or several.
  DeviceListEntry find(const std::string& label) const { return adapterNamed(list_, label); }

  /// Changes a setting of a 10GbE port with the adapter's tool; the answer is what was read back
  /// meanwhile.
  Answer<int64_t> change(const PortTarget& port, const SettingWish& wish);

  /// A port of that adapter, bound now. Throws CommandFailure when the adapter has gone.
  PortTarget port(const DeviceListEntry& adapter, int64_t number) const;

 private:
  void tellLeftUnmounted();

  DeviceList list_;
  std::unique_ptr<DeviceInventory> inventory_;
  AdministratorRights rights_;
  AdapterReader reader_;
};

}  // namespace corvane
