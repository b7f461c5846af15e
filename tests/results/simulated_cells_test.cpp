// Cells whose tuning is known are found again.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

#include "pallomir/science/behaviour/grid_map.h"
#include "pallomir/science/behaviour/head_direction.h"
#include "pallomir/science/behaviour/spatial_autocorrelation.h"
#include "support/recording_world.h"
#include "support/tracks.h"

namespace pallomir {
namespace {

constexpr double kDegree = std::numbers::pi / 180;
constexpr int64_t kFrame = 33'333;
constexpr double kFrameSeconds = 0.033333;

class Recording {
 public:
  /// A walk of `seconds` in a 1 m box, seen at 4 pixels per cm from (120, 40) on, and the spikes of a cell that
  /// fires at rate(x cm, y cm, heading degrees) per second.
  template <class Rate>
  Recording(int64_t seconds, uint64_t seed, Rate rate) : random_(seed) {
    double x = 50, y = 50, heading = 30;
    std::vector<SampleRow> rows;
    for (int64_t time = 1'000'000'000; time < (1000 + seconds) * 1'000'000; time += kFrame) {
      heading += 60 * (Uniform() - 0.5);
      if (x + std::cos(heading * kDegree) < 1 || x + std::cos(heading * kDegree) > 99) heading = 180 - heading;
      if (y + std::sin(heading * kDegree) < 1 || y + std::sin(heading * kDegree) > 99) heading = -heading;
      x = std::clamp(x + std::cos(heading * kDegree), 0.5, 99.5);
      y = std::clamp(y + std::sin(heading * kDegree), 0.5, 99.5);
      heading -= 360 * std::floor(heading / 360);
      rows.push_back({time, 120 + 4 * x, 40 + 4 * y, heading});
      if (Uniform() < rate(x, y, heading) * kFrameSeconds)
        spikes_.push_back(time + static_cast<int64_t>(Uniform() * kFrameSeconds * 1e6));
    }
    track_ = TrackOf(rows);
    samples_ = SamplesOfSpikes(track_, spikes_);
  }

  Map Rates() const {
    const Map occupancy = OccupancyMap(track_, BinSize(4));
    return RateMap(CountSpikes(track_, samples_, occupancy).Counts, occupancy);
  }
  DirectionTuning Tuning() const { return DirectedSamples(track_.Direction, track_.Hold).TuningOf(samples_); }

 private:
  double Uniform() { return static_cast<double>(random_() >> 11) * 0x1p-53; }

  std::mt19937_64 random_;
  std::vector<int64_t> spikes_;
  Track track_;
  std::vector<int64_t> samples_;
};

TEST(SimulatedCells, AGaussianFieldIsFound) {
  constexpr double peakRate = 20, width = 12;
  const Recording recording(7200, 1, [](double x, double y, double) {
    return peakRate * std::exp(-((x - 37) * (x - 37) + (y - 61) * (y - 61)) / (2 * width * width));
  });
  const Map rate = recording.Rates();
  const MapPeak peak = PeakOf(rate);
  const auto middle = [&](int bin) { return (bin + 0.5) * rate.Bin; };
  EXPECT_NEAR(rate.Left + middle(peak.Column), 120 + 4 * 37, rate.Bin);
  EXPECT_NEAR(rate.Top + middle(peak.Row), 40 + 4 * 61, rate.Bin);
  const double smoothing = MapSettings().SmoothingBins * MapSettings().BinCm;
  const double expected = peakRate * width * width / (width * width + smoothing * smoothing);
  EXPECT_NEAR(peak.Value, expected, 0.1 * expected);
}

/// The mean distance, in bins, of the six peaks of an autocorrelation that are nearest to its centre.
double SpacingIn(const Map& lags) {
  std::vector<double> distances;
  const auto isPeak = [&](int row, int column) {
    for (int r = row - 2; r <= row + 2; ++r)
      for (int c = column - 2; c <= column + 2; ++c)
        if (!(lags.At(r, c) <= lags.At(row, column))) return false;
    return lags.At(row, column) > 0.2;
  };
  for (int row = 2; row < lags.Rows - 2; ++row)
    for (int column = 2; column < lags.Columns - 2; ++column)
      if (isPeak(row, column)) distances.push_back(std::hypot(row - lags.Rows / 2, column - lags.Columns / 2));
  std::sort(distances.begin(), distances.end());
  if (distances.size() < 7) return 0;
  double sum = 0;
  for (int k = 1; k <= 6; ++k) sum += distances[k];
  return sum / 6;
}

TEST(SimulatedCells, AGridsSpacingIsFound) {
  constexpr double spacing = 33;
  const Recording recording(3600, 2, [](double x, double y, double) {
    double sum = 1.5;
    for (const double angle : {17.0, 77.0, 137.0})
      sum += std::cos(4 * std::numbers::pi / (std::sqrt(3.0) * spacing) *
                      (x * std::cos(angle * kDegree) + y * std::sin(angle * kDegree)));
    return 15 * std::pow(sum / 4.5, 2);
  });
  EXPECT_NEAR(SpacingIn(SpatialAutocorrelation(recording.Rates())) * MapSettings().BinCm, spacing, 0.05 * spacing);
}

TEST(SimulatedCells, AVonMisesTuningIsFound) {
  const Recording recording(3600, 3, [](double, double, double heading) {
    return 20 * std::exp(3 * (std::cos((heading - 200) * kDegree) - 1));
  });
  const DirectionTuning tuning = recording.Tuning();
  EXPECT_NEAR(tuning.VectorDirection, 200, 3);
  EXPECT_NEAR(tuning.VectorLength, 0.80999, 0.03);  // the quotient of the Bessel functions I1(3) and I0(3)
  EXPECT_EQ(tuning.Coverage, 1);
}

}  // namespace
}  // namespace pallomir
