#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace pallomir {

/// Uniform random numbers in [0, 1) for display: sixteen parallel xorshift generators (Marsaglia 2003), so that filling
/// a block is vectorised. Good enough for jittering points, not for statistics.
class UniformNumbers {
 public:
  explicit UniformNumbers(uint64_t seed);

  /// Fills `numbers` with `count` numbers.
  void Fill(float* numbers, size_t count);

  float Next();

 private:
  static constexpr size_t kLanes = 16;
  std::array<uint32_t, kLanes> state_;
  std::array<float, kLanes> spare_{};
  size_t used_ = kLanes;
};

}  // namespace pallomir
