#pragma once

#include <string>
#include <vector>

#include "platform/Registry.h"

namespace corvane {

/// An adapter as the buses of the computer tell of it, whether its driver runs or not.
struct AttachedAdapter {
  std::string product;   ///< product name
  std::string Sequence;  ///< label, such as "B - 2"

  bool operator==(const AttachedAdapter&) const = default;
};

/// The adapters attached, by their Thunderbolt endpoints and Ethernet functions, in no particular
/// order.
std::vector<AttachedAdapter> findAttachedAdapters(Registry& registry);

}  // namespace corvane
