// The generator behind all dice.
#pragma once

#include <random>

#include "platform/platform.h"

namespace dtb {

// A Mersenne twister. Re-seeding mixes the time into the state that the generator has reached, so
// two throws within one second differ, and no two draws march in step.
class RandomGenerator : public Randoms {
 public:
  // A seed of the operating system's own.
  RandomGenerator() : RandomGenerator(std::random_device{}()) {}
  // The same seed gives the same dice.
  explicit RandomGenerator(std::uint64_t seed) : engine_(seed) {}

  void Reseed(int secondsSinceMidnight) override;
  double Draw() override;

 private:
  std::mt19937_64 engine_;
};

}  // namespace dtb
