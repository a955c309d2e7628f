#include "platform/random_generator.h"

namespace dtb {

void RandomGenerator::Reseed(int secondsSinceMidnight) {
  const std::uint64_t mixed = engine_();
  std::seed_seq seeds{static_cast<std::uint32_t>(mixed >> 32U), static_cast<std::uint32_t>(mixed),
                      static_cast<std::uint32_t>(secondsSinceMidnight)};
  engine_.seed(seeds);
}

double RandomGenerator::Draw() {
  // The 24 bits of single precision: the largest draw times any number of sides stays below it.
  constexpr int kDropped = 64 - 24;
  constexpr double kUnit = 1.0 / (1U << 24U);
  return static_cast<double>(engine_() >> kDropped) * kUnit;
}

}  // namespace dtb
