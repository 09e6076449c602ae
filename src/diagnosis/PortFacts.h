#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "diagnosis/Memory.h"
#include "fibre_channel/TransceiverFacts.h"
#include "inventory/AdapterReading.h"

namespace corvane {

/// What is known of the module in a port.
enum class ModuleState {
  NotThere,    ///< the product has no cage, or nobody asked
  NotKnown,    ///< asked and not answered
  Empty,       ///< an empty cage, by its own account
  Blank,       ///< a module whose memory answers with nothing
  HalfRead,    ///< a module whose bytes got into each other's place
  WrongClass,  ///< a module whose speed does not suit
  Good,
};

/// One port of a listed adapter and what follows from its reading alone. Refers to the readings
/// that it was made from, which outlive it.
class PortFacts {
 public:
  /// `place` is 0 or 1.
  PortFacts(const ComputerReading& computer, size_t adapter, size_t place, const Memory& memory);

  size_t adapterIndex() const { return adapterIndex_; }
  int64_t number() const { return number_; }
  const AdapterReading& adapter() const { return *adapter_; }
  bool isFibreChannel() const { return fibreChannel_ != nullptr; }

  /// Null for the other family.
  const FibreChannelPortReading* fibreChannel() const { return fibreChannel_; }
  const TenGigabitPortReading* tenGigabit() const { return tenGigabit_; }

  /// What the driver tells of a Fibre Channel port; null without an answer, and for one that is all
  /// zero, names included.
  const FibreChannelPortInformation* information() const { return information_; }

  /// WWPN or MAC address; empty when not known.
  const std::string& address() const { return address_; }

  /// What is remembered of it; null for nothing.
  const PortMemory* memory() const { return memory_; }

  ReadingTime now() const { return now_; }

  bool hasLink() const { return link_ == true; }
  bool lacksLink() const { return link_ == false; }

  /// The speed that it runs at, in Mb/s; 0 when not known or without a link.
  uint64_t speed() const { return speed_; }

  /// The speed set, 0 for automatic. Fibre Channel with information only.
  uint64_t setSpeed() const;
  bool isSetToLoop() const;
  uint64_t queueDepth() const;

  /// 10GbE: whether its product has cages.
  bool hasCage() const;

  ModuleState module() const { return module_; }
  bool hasGoodModule() const { return module_ == ModuleState::Good; }

  /// The module's bytes, of a Fibre Channel port that holds one.
  const std::optional<TransceiverFacts>& transceiver() const { return transceiver_; }

  /// A good module that is a cable.
  bool holdsCable() const;

  /// The module's own account of its speeds; empty unless it can be relied on.
  std::vector<uint64_t> trustedSpeeds() const;

  /// The speeds that a Fibre Channel port of the product has, in Mb/s, rising; empty for others.
  const std::vector<uint64_t>& offeredSpeeds() const { return offeredSpeeds_; }

  /// The highest speed that both port and module are made for; 0 when it cannot be told.
  uint64_t possibleSpeed() const;

  /// The serial number of the module, or what else tells it; empty when nothing does.
  std::string moduleName() const;

  /// No link was seen here for long, although somebody looked.
  bool isIdle() const;

  /// Port memory has a link not longer ago than thirty days.
  bool wasSeenWithLink() const;

 private:
  void readFibreChannel(const AdapterReading& adapter, size_t place);
  void readTenGigabit(const AdapterReading& adapter, size_t place);
  void readModule();
  void readModuleClass();

  const AdapterReading* adapter_;
  size_t adapterIndex_;
  int64_t number_;
  const FibreChannelPortReading* fibreChannel_ = nullptr;
  const TenGigabitPortReading* tenGigabit_ = nullptr;
  const FibreChannelPortInformation* information_ = nullptr;
  std::string address_;
  const PortMemory* memory_ = nullptr;
  ReadingTime now_;
  std::optional<bool> link_;
  uint64_t speed_ = 0;
  ModuleState module_ = ModuleState::NotThere;
  std::optional<TransceiverFacts> transceiver_;
  std::vector<uint64_t> offeredSpeeds_;
};

/// The speeds that ports of a Fibre Channel product have, in Mb/s, rising; empty for others.
std::vector<uint64_t> speedsOffered(std::string_view product);

/// The speed that a medium of ifconfig stands for, in Mb/s; 0 when it names none.
uint64_t mediumSpeed(std::string_view medium);

}  // namespace corvane
