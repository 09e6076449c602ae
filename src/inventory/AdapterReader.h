#pragma once

#include <memory>

#include "inventory/AdapterReading.h"
#include "inventory/InstalledDriver.h"
#include "inventory/PortReaders.h"

namespace corvane {

/// What readings are made from: drivers and tools that answer, or a registry dump in which none do.
enum class ReadingSource { Computer, Dump };

/// Looks at adapters and ports for whoever has no page to show them on. Each look asks anew and
/// blocks until drivers and tools have answered; a tool that hangs is given up after
/// commandTimeLimit a line. One thread at a time; the adapters' driver objects that it fills are
/// the list's, so no page may look at the same adapter meanwhile.
class AdapterReader {
 public:
  /// What the platform refers to outlives the reader.
  explicit AdapterReader(const Platform& platform, ReadingSource source = ReadingSource::Computer);

  /// The adapter and both its ports. A port that has gone meanwhile is not answered for.
  AdapterReading read(const DeviceListEntry& adapter);

  /// The same, but of the ports only what their links are: one driver call or a few lines of
  /// `ifconfig` a port.
  AdapterReading readLinks(const DeviceListEntry& adapter);

  /// The adapter and one of its ports; the other one is not asked.
  AdapterReading readPort(const PortTarget& port);

  FibreChannelPortReading readFibreChannel(const PortTarget& port);
  TenGigabitPortReading readTenGigabit(const PortTarget& port);

 private:
  template <typename FibreChannel, typename TenGigabit>
  AdapterReading readWith(const DeviceListEntry& adapter, FibreChannel fibreChannel,
                          TenGigabit tenGigabit);
  int64_t fitness(AdapterFamily family) const;

  const Platform platform_;
  ReadingSource source_;
  commandBody command_;
  commandAPI presets_;
  TenGigabitPortReader tenGigabit_;
};

}  // namespace corvane
