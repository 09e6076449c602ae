#pragma once

#include "inventory/PortTarget.h"
#include "platform/Dispatch.h"

namespace corvane {

/// Waits until a Fibre Channel port whose settings were changed has a link again: looks at it every
/// three seconds, three times at most, and ends early when the link is back or the port has gone.
/// Blocks its caller meanwhile.
void followLink(Dispatch& dispatch, const PortTarget& port);

}  // namespace corvane
