#pragma once

#include <array>

#include "diagnosis/Draft.h"

namespace corvane {

/// The path of a port from the computer to what is behind it, judged by what is told of it.
std::array<PathStation, segmentCount> pathOf(const Look& look, const PortFacts& port,
                                             const Drafts& told);

}  // namespace corvane
