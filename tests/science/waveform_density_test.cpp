#include "pallomir/science/waveforms/waveform_density.h"

#include <gtest/gtest.h>

namespace pallomir {
namespace {

WireSamples Ramp(int16_t start, int16_t step) {
  WireSamples samples{};
  for (int s = 0; s < kWaveformSamples; ++s) samples[2][s] = static_cast<int16_t>(start + step * s);
  return samples;
}

TEST(WaveformDensity, EveryTracePassesEveryColumnAndLeavesNoGap) {
  const std::vector<WireSamples> waveforms = {Ramp(0, 0), Ramp(0, 0), Ramp(-31, 2), Ramp(310, -20)};
  const WaveformDensity density = DensityOf(waveforms, 2, 63, 40, -40, 40);
  EXPECT_EQ(density.At(20, 0), 2U) << "0 is below the middle";
  EXPECT_EQ(density.At(20, 62), 2U);
  for (int column = 0; column < 63; ++column) {
    uint32_t passes = 0;
    for (int row = 0; row < 40; ++row) passes += density.At(row, column);
    EXPECT_GE(passes, 3U) << column;
  }
  // The steep one goes from above the picture to below it, through every row.
  const WaveformDensity steep = DensityOf({waveforms.data() + 3, 1}, 2, 63, 40, -40, 40);
  for (int row = 0; row < 40; ++row) {
    uint32_t passes = 0;
    for (int column = 0; column < 63; ++column) passes += steep.At(row, column);
    EXPECT_EQ(passes, 1U) << row;
  }
}

TEST(WaveformDensity, TheRangeLeavesOutRareExtremes) {
  std::vector<WireSamples> waveforms(100, Ramp(-100, 10));
  waveforms[7][0][3] = 32'767;
  waveforms[9][1][3] = -32'768;
  const SampleRange range = RangeOfSamples(waveforms);
  EXPECT_EQ(range.Low, -100);
  EXPECT_EQ(range.High, 210);
  EXPECT_EQ(RangeOfSamples({}).High, 0);
}

}  // namespace
}  // namespace pallomir
