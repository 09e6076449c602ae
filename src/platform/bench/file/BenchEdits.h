#pragma once

#include <optional>
#include <stdexcept>
#include <string>

#include "platform/bench/file/BenchState.h"

namespace corvane {

/// Why something cannot be done to a bench, as one sentence without full stop.
class BenchEditError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The label that the utility shows for a place: "B - 2" for bridge 2, hop 2. Without a letter
/// where the bridge has none.
std::string benchLabel(const BenchAdapter& adapter);

/// The attached adapter that `label` names: a label in any case, with or without blanks and hyphen,
/// a node or port name, or a MAC address. Null when there is none. Throws
/// BenchEditError when it fits several.
BenchAdapter* findAdapter(BenchState& state, const std::string& label);

/// The port of that number, 1 or 2, of a Fibre Channel adapter. Throws BenchEditError.
BenchFibreChannelPort& fibreChannelPort(BenchAdapter& adapter, int number);

/// Plugs in an adapter of that product at that place. One of the same product that was unplugged
/// there, or that has the node name or MAC address `name`, comes back as it was left; otherwise a
/// new one is made, with `name` or a made-up one. Returns its label. Throws BenchEditError.
std::string plugAdapter(BenchState& state, const std::string& product, int64_t bridge, int64_t hop,
                        const std::optional<std::string>& name);

/// Unplugs an adapter: it loses power, and stays in the bench unattached.
void unplugAdapter(BenchAdapter& adapter);

/// What losing power does: flashed firmware becomes the running one, settings fall back to the
/// saved ones, a link drop is over.
void losePower(BenchAdapter& adapter);

/// Drops or restores the link of a port; `speed` is what the partner runs at, nothing to leave that
/// as it is. Works for both families; a 10GbE port has no speed to choose. Throws BenchEditError.
void setLink(BenchAdapter& adapter, int number, bool up, std::optional<int64_t> speed);

}  // namespace corvane
