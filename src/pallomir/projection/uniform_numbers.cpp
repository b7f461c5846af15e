#include "pallomir/projection/uniform_numbers.h"

#include "pallomir/files/mixing_generator.h"
#include "pallomir/files/platform.h"

namespace pallomir {

UniformNumbers::UniformNumbers(uint64_t seed) {
  // Seed the lanes with a mixing generator, so that their sixteen states are unrelated.
  for (uint32_t& state : state_) state = static_cast<uint32_t>(NextMixed(seed) >> 32) | 1U;
}

PALLOMIR_HOT_LOOP
static void FillLanes(uint32_t* state, float* numbers, size_t rounds) {
  constexpr size_t kLanes = 16;
  for (size_t round = 0; round < rounds; ++round, numbers += kLanes) {
    for (size_t lane = 0; lane < kLanes; ++lane) {
      uint32_t s = state[lane];
      s ^= s << 13;
      s ^= s >> 17;
      s ^= s << 5;
      state[lane] = s;
      // The upper 24 bits, as many as fit a float.
      numbers[lane] = static_cast<float>(static_cast<int32_t>(s >> 8)) * 0x1p-24F;
    }
  }
}

void UniformNumbers::Fill(float* numbers, size_t count) {
  const size_t rounds = count / kLanes;
  FillLanes(state_.data(), numbers, rounds);
  for (size_t i = rounds * kLanes; i < count; ++i) numbers[i] = Next();
}

float UniformNumbers::Next() {
  if (used_ == kLanes) {
    FillLanes(state_.data(), spare_.data(), 1);
    used_ = 0;
  }
  return spare_[used_++];
}

}  // namespace pallomir
