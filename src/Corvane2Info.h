#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "CorvaneAPI.h"
#include "platform/Platform.h"

namespace corvane {

/// A Fibre Channel adapter as the pages show it: what the driver tells of its ports, and its place
/// among the daisy-chained adapters. One thread at a time.
class Corvane2Info {
 public:
  /// What the platform refers to outlives the object.
  explicit Corvane2Info(const Platform& platform);

  int64_t deviceSequence = 0;             ///< place along the chain
  std::optional<std::string> devicePort;  ///< letter of the chain; unset when it has none
  std::string deviceWWN;                  ///< the adapter's world wide node name
  CorvaneAPI port1Info;
  CorvaneAPI port2Info;

  /// Returns the place along its chain of the adapter that the port `service` belongs to, and sets
  /// devicePort unless the chain has no letter.
  int64_t sortDeviceSequence(RegistryHandle service);

  /// The adapter's label, such as "B - 2".
  std::string label() const;

 private:
  Registry& registry_;
};

}  // namespace corvane
