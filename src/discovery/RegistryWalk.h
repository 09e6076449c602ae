#pragma once

#include "platform/Registry.h"

namespace corvane {

/// Goes upward from a registry entry, one ancestor at a time, and releases each once it has been
/// left. The entry it starts from stays its owner's.
class RegistryWalk {
 public:
  RegistryWalk(Registry& registry, RegistryHandle start) : registry_(registry), at_(start) {}

  /// Moves on to the parent of the current entry. False at the top of the registry.
  bool next() {
    RegistryHandle parent = 0;
    if (registry_.parentEntry(at_, servicePlane, parent) != statusSuccess || parent == 0)
      return false;
    ancestor_ = RegistryObject(registry_, parent);
    at_ = parent;
    return true;
  }

  /// The current entry's name; empty when it cannot be read.
  std::string name() const {
    std::string name;
    if (registry_.name(at_, name) != statusSuccess) return {};
    return name;
  }

  /// Reads the current entry's properties; false when that fails.
  bool properties(PropertyValue::Dictionary& properties) const {
    return registry_.properties(at_, properties) == statusSuccess;
  }

 private:
  Registry& registry_;
  RegistryHandle at_;
  RegistryObject ancestor_;
};

}  // namespace corvane
