#pragma once

#include <cstdint>

#include "pallomir/files/mixing_generator.h"

namespace pallomir {

/// Random draws that are the same for a seed on every platform, unlike those of the standard library's distributions.
class Draws {
 public:
  explicit Draws(uint64_t seed) : state_(seed) {}

  /// An independent generator for part `part`, so that one part can change without the others.
  Draws Part(uint64_t part) const { return Draws(Draws(state_ + part * 0xD1B54A32D192ED03).Next()); }

  uint64_t Next() { return NextMixed(state_); }

  /// From 0 up to, not including, 1.
  double Uniform() { return static_cast<double>(Next() >> 11) * 0x1p-53; }

  bool Chance(double probability) { return Uniform() < probability; }

  /// Mean 0, standard deviation 1: the sum of eight uniform 16-bit numbers, so never beyond 4.9.
  double Normal() {
    int64_t sum = 0;
    for (int half = 0; half < 2; ++half)
      for (uint64_t rest = Next(), part = 0; part < 4; ++part, rest >>= 16) sum += static_cast<int64_t>(rest & 0xFFFF);
    constexpr double mean = 8 * 32767.5;
    constexpr double deviation = 53509.92;  // sqrt(8 / 12) * 65536
    return (static_cast<double>(sum) - mean) / deviation;
  }

 private:
  uint64_t state_;
};

}  // namespace pallomir
