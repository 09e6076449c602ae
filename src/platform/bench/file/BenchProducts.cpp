#include "platform/bench/file/BenchProducts.h"

#include <algorithm>
#include <array>

namespace corvane {

namespace {

constexpr std::array products{
    BenchProduct{"Corvane2 8G FC", true, 2, 0x05, 0, false, true, true},
    BenchProduct{"Corvane2 16G FC", true, 2, 0x0d, 0, true, true, true},
    BenchProduct{"Corvane3 8G FC", true, 3, 0x15, 0, false, true, true},
    BenchProduct{"Corvane3 F2", true, 3, 0x12, 0, true, false, true},
    BenchProduct{"Corvane2 10G Base-T", false, 2, 0x07, 0x01620000, false, false, false},
    BenchProduct{"Corvane2 10G SFP+", false, 2, 0x08, 0x02620000, false, false, true},
    BenchProduct{"Corvane3 NBASE-T1", false, 3, 0x19, 0x03720000, false, false, false},
    BenchProduct{"Corvane3 10G Base-T", false, 3, 0x16, 0x01720000, false, false, false},
    BenchProduct{"Corvane3 10G SFP+", false, 3, 0x17, 0x02720000, false, false, true},
};

/// Whether the sub-block that 8b/10b makes of the low five bits holds as many ones as zeros.
bool isLowBlockBalanced(uint8_t byte) {
  constexpr std::array<uint8_t, 13> unbalanced{0, 1, 2, 4, 8, 15, 16, 23, 24, 27, 29, 30, 31};
  return std::find(unbalanced.begin(), unbalanced.end(), byte & 0x1FU) == unbalanced.end();
}

/// The same of the high three bits.
bool isHighBlockBalanced(uint8_t byte) {
  constexpr std::array<uint8_t, 3> unbalanced{0, 4, 7};
  return std::find(unbalanced.begin(), unbalanced.end(), byte >> 5U) == unbalanced.end();
}

}  // namespace

std::span<const BenchProduct> benchProducts() {
  return products;
}

const BenchProduct* findBenchProduct(std::string_view name) {
  const auto found =
      std::find_if(products.begin(), products.end(),
                   [&](const BenchProduct& product) { return product.name == name; });
  return found == products.end() ? nullptr : &*found;
}

bool supportsSpeed(const BenchProduct& product, int64_t speed) {
  if (speed == 2000) return product.has2G;
  if (speed == 16000) return product.has16G;
  return speed == 4000 || speed == 8000;
}

bool isLoopAddress(uint64_t number) {
  constexpr uint64_t lowest = 0x01;
  constexpr uint64_t highest = 0xEF;
  if (number < lowest || number > highest) return false;
  const auto byte = static_cast<uint8_t>(number);
  return isLowBlockBalanced(byte) == isHighBlockBalanced(byte);
}

}  // namespace corvane
