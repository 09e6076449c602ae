#pragma once

#include <string>

#include "platform/bench/file/BenchProducts.h"

namespace corvane {

/// The memory of a short-wave module of the product's speed class, as a bench file holds it: the 96
/// bytes of SFF-8472's serial identification area (address A0h) in hexadecimal.
std::string shortWaveModule(const BenchProduct& product);

}  // namespace corvane
