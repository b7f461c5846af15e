#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace pallomir {

/// Uniform numbers in [0, 1) for display: sixteen xorshift generators (Marsaglia 2003) side by side, so that a block is
/// filled in vectors. Good enough for spreading points, not for statistics.
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
