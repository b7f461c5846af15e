#pragma once

#include <cstdint>

namespace pallomir {

/// The next number of the splitmix64 generator (Steele, Lea and Flood 2014); any state is valid.
inline uint64_t NextMixed(uint64_t& state) {
  state += 0x9E3779B97F4A7C15U;
  uint64_t mixed = (state ^ (state >> 30)) * 0xBF58476D1CE4E5B9U;
  mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
  return mixed ^ (mixed >> 31);
}

}  // namespace pallomir
