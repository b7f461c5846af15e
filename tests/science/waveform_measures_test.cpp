#include "pallomir/science/waveforms/waveform_measures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

#include "pallomir/science/statistics/cubic_spline.h"

namespace pallomir {
namespace {

constexpr std::array<double, kWires> kScale = {0.5, 0.5, 0.5, 0.5};

/// A bump of a sine, and a shallower one downward, on wire 2; half of it on wire 0.
double Template(double sample) {
  if (sample < 4 || sample > 24) return 0;
  return sample <= 12 ? 1000 * std::sin((sample - 4) / 8 * std::numbers::pi)
                      : -400 * std::sin((sample - 12) / 12 * std::numbers::pi);
}

struct Recorded {
  AverageWaveform Average;
  SpikeHeights Heights;
};

/// Spikes of the template with noise, and a height that grows by `growth` of itself over an hour.
Recorded Record(int spikes, double noise, double growth = 0) {
  std::mt19937_64 random(1);
  std::normal_distribution<double> jitter(0, noise);
  WaveformAverager averager;
  Recorded recorded;
  for (int i = 0; i < spikes; ++i) {
    const int64_t time = 3'600'000'000 / spikes * i;
    const double gain = 1 + growth * i / spikes;
    WireSamples samples{};
    for (int s = 0; s < kWaveformSamples; ++s) {
      samples[2][s] = static_cast<int16_t>(std::lround(gain * Template(s) + jitter(random)));
      samples[0][s] = static_cast<int16_t>(std::lround(gain * Template(s) / 2 + jitter(random)));
    }
    averager.Add(samples);
    recorded.Heights.Time.push_back(time);
    for (int wire = 0; wire < kWires; ++wire)
      recorded.Heights.Counts[wire].push_back(*std::max_element(samples[wire].begin(), samples[wire].end()));
  }
  recorded.Average = averager.Result(kScale);
  return recorded;
}

WaveformMeasures MeasuresOf(const Recorded& recorded, double rate = 32'000) {
  return WaveformMeasuresOf(recorded.Average, recorded.Heights, kScale, rate, LoadedTime({{0, 3'600'000'000}}));
}

TEST(CubicSpline, GoesThroughItsValuesAndFindsItsTurns) {
  const std::vector<double> values = {0, 1, 0, -1, 0};
  const CubicSpline curve(values);
  for (size_t i = 0; i < values.size(); ++i) EXPECT_NEAR(curve.At(static_cast<double>(i)), values[i], 1e-15);
  EXPECT_NEAR(curve.At(0.5), 0.75 - 0.0625, 1e-15) << "by hand, the first piece is 1.5 t - 0.5 t^3";
  const CubicSpline::Point top = curve.Highest();
  EXPECT_NEAR(curve.At(top.X), top.Y, 1e-15);
  EXPECT_GE(top.Y, std::max(curve.At(top.X - 1e-4), curve.At(top.X + 1e-4)));
  EXPECT_NEAR(curve.LowestAfter(top.X)->X + top.X, 4, 1e-12) << "the curve is odd about its middle";
  EXPECT_FALSE(curve.LowestAfter(4));
  EXPECT_NEAR(curve.At(*curve.CrossingBefore(top.X, 0.5)), 0.5, 1e-12);
  EXPECT_NEAR(curve.At(*curve.CrossingAfter(top.X, 0.5)), 0.5, 1e-12);
  EXPECT_FALSE(curve.CrossingBefore(top.X, -0.5));
}

TEST(WaveformMeasures, OfATemplateWithNoiseAreTheTemplates) {
  const WaveformMeasures measures = MeasuresOf(Record(20'000, 50));
  EXPECT_EQ(measures.Largest, 2);
  EXPECT_NEAR(measures.Wires[2].Peak.Value, 500, 3);
  EXPECT_NEAR(measures.Wires[0].Trough.Value, -100, 3);
  EXPECT_NEAR(measures.PeakToTrough.Value, 10 * 31.25, 5) << "from sample 8 to 18";
  EXPECT_NEAR(measures.Width.Value, 8 * 2 / 3.0 * 31.25, 3) << "sin is above a half for two thirds of its half period";
  EXPECT_NEAR(measures.SignalToNoise.Value, 1400 / 100.0, 0.2);
  EXPECT_NEAR(measures.Drift.Value, 0, 1);
}

TEST(WaveformMeasures, FindDrift) {
  const WaveformMeasures measures = MeasuresOf(Record(20'000, 50, 0.2));
  EXPECT_NEAR(measures.Drift.Value, 0.2 * 500, 3);
  EXPECT_NEAR(measures.Excursion.Value, 0.2 * 500 * 0.95, 5);
}

TEST(WaveformMeasures, SayWhyTheyAreNotKnown) {
  EXPECT_EQ(MeasuresOf({}).Largest, -1);
  const WaveformMeasures few = MeasuresOf(Record(4, 0), 0);
  EXPECT_STREQ(few.PeakToTrough.Why, "the sampling rate is not known");
  EXPECT_STREQ(few.SignalToNoise.Why, "all waveforms are the same");
  EXPECT_STREQ(few.Cutoff.Why, "fewer than 100 spikes");
  EXPECT_STREQ(few.Drift.Why, "spikes in too few parts of the time");
}

TEST(AmplitudeCutoff, IsTheShareThatIsMissing) {
  std::mt19937_64 random(1);
  std::normal_distribution<double> height(100, 10);
  for (const double missing : {0.02, 0.1, 0.3}) {
    std::vector<double> heights(200'000);
    for (double& h : heights) h = height(random);
    std::sort(heights.begin(), heights.end());
    heights.erase(heights.begin(), heights.begin() + static_cast<std::ptrdiff_t>(missing * 200'000));
    EXPECT_NEAR(AmplitudeCutoff(heights).Value, missing, 0.02);
  }
  std::vector<double> flat(1000, 5);
  EXPECT_FALSE(AmplitudeCutoff(flat).Known());
}

}  // namespace
}  // namespace pallomir
