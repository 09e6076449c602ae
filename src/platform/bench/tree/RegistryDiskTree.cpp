#include <fmt/format.h>

#include "platform/bench/tree/RegistryTreeParts.h"

// Disks and partitions, below whatever bus they hang on.
namespace corvane {

namespace {

void addPartitions(RegistryTreeEntry& media, const BenchDisk& disk) {
  if (disk.partitions.empty()) return;
  RegistryTreeEntry& scheme = addEntry(media, "IOGUIDPartitionScheme", "", "IOGUIDPartitionScheme",
                                       {{"CFBundleIdentifier", "com.apple.iokit.IOStorageFamily"}});
  int number = 1;
  for (const BenchPartition& partition : disk.partitions) {
    addEntry(scheme, fmt::format("Untitled {}", number), std::to_string(number), "IOMedia",
             {{"BSD Name", partition.name}, {"Whole", false}, {"Leaf", true}});
    ++number;
  }
}

void addDisk(RegistryTreeEntry& unit, const BenchDisk& disk, const std::string& mediaName) {
  RegistryTreeEntry& driver = addEntry(unit, "IOBlockStorageDriver", "", "IOBlockStorageDriver",
                                       {{"CFBundleIdentifier", "com.apple.iokit.IOStorageFamily"}});
  RegistryTreeEntry& media =
      addEntry(driver, mediaName, "", "IOMedia",
               {{"BSD Name", disk.name}, {"Whole", true}, {"Leaf", disk.partitions.empty()}});
  addPartitions(media, disk);
}

}  // namespace

void addPortDisks(RegistryTreeEntry& port, const BenchState& state, const std::string& wwpn) {
  int target = 0;
  for (const BenchDisk& disk : state.disks) {
    if (!disk.port || !isSameAddress(*disk.port, wwpn)) continue;
    RegistryTreeEntry& device =
        addEntry(port, "IOSCSITargetDevice", fmt::format("{:X}", target++), "IOSCSITargetDevice",
                 {{"CFBundleIdentifier", "com.apple.iokit.IOSCSIParallelFamily"}});
    addDisk(addEntry(device, "IOSCSILogicalUnitNub", "0", "IOSCSILogicalUnitNub"), disk,
            "RAID Media");
  }
}

void addBusDisks(RegistryTreeEntry& bus, const BenchState& state, const std::string& busName) {
  int target = 0;
  for (const BenchDisk& disk : state.disks) {
    if (disk.port || disk.bus != busName) continue;
    addDisk(addEntry(bus, "IOBlockStorageDevice", fmt::format("{:X}", target++),
                     "IOBlockStorageDevice"),
            disk, busName + " Disk Media");
  }
}

}  // namespace corvane
