#pragma once

#include <vector>

#include "platform/bench/tree/RegistryTree.h"

namespace corvane {

/// Whether a service with these properties is what a matching dictionary asks for: every entry
/// under "IOPropertyMatch", and every other key, is among the properties with that value. Of a
/// dictionary only the keys asked for count. An empty dictionary matches nothing.
bool matchesProperties(const PropertyValue::Dictionary& matching,
                       const PropertyValue::Dictionary& properties);

/// The entry and everything below it, parents before their children.
std::vector<const RegistryTreeEntry*> inTreeOrder(const RegistryTreeEntry& entry);

}  // namespace corvane
