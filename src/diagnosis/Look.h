#pragma once

#include <optional>
#include <string>
#include <vector>

#include "diagnosis/PortFacts.h"

namespace corvane {

/// Something that a finding concerns: a port of a listed adapter, or an adapter as a whole.
struct Place {
  bool isListed = true;
  size_t adapter = 0;  ///< index among the listed ones, or among the unlisted ones
  int64_t port = 0;    ///< 1 or 2; 0 for the adapter as a whole

  bool operator==(const Place&) const = default;
};

/// Everything that a rule may look at: a reading, the memory, and what follows from them. Refers to
/// both, which outlive it.
class Look {
 public:
  Look(const ComputerReading& reading, const Memory& memory);
  Look(const Look&) = delete;
  Look& operator=(const Look&) = delete;

  const ComputerReading& reading() const { return reading_; }
  const Memory& memory() const { return memory_; }

  /// All ports of the listed adapters, in their order.
  const std::vector<PortFacts>& ports() const { return ports_; }

  /// The other port of the same adapter.
  const PortFacts& sister(const PortFacts& port) const;

  /// Both ports of a listed adapter.
  const PortFacts& port(size_t adapter, int64_t number) const;

  /// Whether an adapter of the family is in the device list.
  bool isListed(AdapterFamily family) const;

  /// Whether the driver serves any adapter of the family, listed or not.
  bool isServed(AdapterFamily family) const;

  /// Indices of the unlisted adapters of the family that have had their time to appear.
  std::vector<size_t> settledUnlisted(AdapterFamily family) const;

  /// The name of the family's bundle that counts, the one found first; nothing when there is none
  /// or when it is not known.
  std::optional<std::string> selectedBundle(AdapterFamily family) const;

  /// Its version text, which may be empty; nothing without a bundle.
  std::optional<std::string> bundleVersion(AdapterFamily family) const;

  /// Whether it is known that the folder holds no bundle of the family.
  bool lacksBundle(AdapterFamily family) const;

  /// Places of all ports of the family's listed adapters, and of both ports of one adapter.
  std::vector<Place> portsOf(AdapterFamily family) const;
  std::vector<Place> portsOfAdapter(size_t adapter) const;

 private:
  const ComputerReading& reading_;
  const Memory& memory_;
  std::vector<PortFacts> ports_;
};

Place placeOf(const PortFacts& port);

/// The bundle identifier that the services of that bundle carry.
std::string bundleIdentifier(const std::string& bundle);

}  // namespace corvane
