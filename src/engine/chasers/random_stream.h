#pragma once
// The console's one stream of pseudo-random numbers. It starts from the same
// fixed seed at every start, so a chaser set to random order plays the same
// sequence of steps each time the console runs: a show that was rehearsed
// looks the same on the night.

#include <cstdint>
#include <random>

namespace q {

class RandomStream {
 public:
  // The next fraction in [0, 1).
  double next() { return double(gen_()) / 4294967296.0; }
  // A whole number from low to high inclusive: the integer part of a fraction
  // times the width of the span, plus low.
  int32_t between(int32_t low, int32_t high) {
    return int32_t(next() * (double(high) - double(low) + 1.0)) + low;
  }

 private:
  static constexpr uint32_t kSeed = 5489u;
  std::mt19937 gen_{kSeed};
};

}  // namespace q
