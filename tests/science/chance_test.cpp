#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

#include "pallomir/files/error.h"
#include "pallomir/science/behaviour/arena.h"
#include "pallomir/science/parallel_for.h"
#include "pallomir/science/trains/circular_shifts.h"
#include "support/tracks.h"

namespace pallomir {
namespace {

constexpr int64_t kSecond = 1'000'000;

TEST(CircularShifts, AreTheSameForEverySeed) {
  const LoadedTime time({{500 * kSecond, 1700 * kSecond}});
  EXPECT_EQ(CircularShifts(time, {.Shifts = 3, .Seed = 1}),
            (std::vector<int64_t>{677'211'427, 885'106'838, 1'146'363'194}));
  EXPECT_NE(CircularShifts(time, {.Shifts = 3, .Seed = 2}).front(), 677'211'427);
  for (const int64_t shift : CircularShifts(LoadedTime({{0, 60 * kSecond}}), {}))
    EXPECT_TRUE(shift >= 20 * kSecond && shift <= 40 * kSecond);
  EXPECT_TRUE(CircularShifts(LoadedTime({{0, 59 * kSecond}}), {}).empty());
}

TEST(ShiftedTrain, MovesOnThroughAllPartsAndRoundTheEnd) {
  // Two parts of 10 s, a sample a second, each counts for 0.5 s.
  const LoadedTime time({{0, 10 * kSecond}, {100 * kSecond, 110 * kSecond}});
  std::vector<int64_t> stamps;
  for (const int64_t start : {0, 100})
    for (int64_t i = 0; i < 10; ++i) stamps.push_back((start + i) * kSecond);
  const std::vector<double> hold(20, 0.5e6);
  const std::vector<int64_t> spikes = {kSecond, 9 * kSecond + 600'000, 100 * kSecond, 108 * kSecond};
  const ShiftedTrain train(spikes, stamps, hold, time);
  std::vector<int64_t> samples;
  train.SamplesAt(0, samples);
  EXPECT_EQ(samples, (std::vector<int64_t>{1, -1, 10, 18}));
  train.SamplesAt(5 * kSecond, samples);
  EXPECT_EQ(samples, (std::vector<int64_t>{6, -1, 15, 3}));
  train.SamplesAt(10 * kSecond + 400'000, samples);
  EXPECT_EQ(samples, (std::vector<int64_t>{11, 0, 0, 8}));
}

TEST(ChanceLevel, CountsTheOwnTrainAndLeavesOutWhatIsNotKnown) {
  const std::vector<double> shifted = {1, 2, kNotKnown, 3, 3, 5, kNotKnown};
  const ChanceLevel level = ChanceLevelOf(3, shifted);
  EXPECT_EQ(level.Finite, 5);
  EXPECT_EQ(level.P.Value, 4 / 6.0);
  EXPECT_EQ(level.LowerP.Value, 5 / 6.0);
  EXPECT_DOUBLE_EQ(level.Mean.Value, 2.8);
  EXPECT_DOUBLE_EQ(level.Z.Value, 0.2 / std::sqrt(8.8 / 4));
  EXPECT_DOUBLE_EQ(level.High95.Value, 3 + 0.8 * 2);
  EXPECT_FALSE(ChanceLevelOf(kNotKnown, shifted).P.Known());
  EXPECT_FALSE(ChanceLevelOf(3, std::vector<double>{1, kNotKnown, kNotKnown}).P.Known());
}

/// Runs at random through a box of 10 by 10 bins, 10 samples a second.
Positions RandomRun(int64_t seconds, unsigned seed) {
  std::mt19937_64 random(seed);
  std::normal_distribution<double> turn(0, 0.5);
  std::vector<SampleRow> rows;
  double x = 50, y = 50, heading = 0;
  for (int64_t i = 0; i < 10 * seconds; ++i) {
    heading += turn(random);
    x = std::clamp(x + 4 * std::cos(heading), 1.0, 99.0);
    y = std::clamp(y + 4 * std::sin(heading), 1.0, 99.0);
    rows.push_back({i * kSecond / 10, x, y, std::fmod(heading * 180 / std::numbers::pi + 36'000, 360)});
  }
  return PositionsOf(rows);
}

TEST(Chance, IsUniformForTrainsThatKnowNothing) {
  const Positions run = RandomRun(300, 1);
  MeasureSettings settings;
  settings.Chance.Shifts = 39;
  const Arena arena(run, LoadedTime({{0, run.Time.back()}}), settings);
  std::mt19937_64 random(7);
  std::array<std::array<int, 4>, 3> quarters{};
  for (int trial = 0; trial < 200; ++trial) {
    std::vector<int64_t> spikes;
    std::exponential_distribution<double> interval(2e-6);
    for (double t = interval(random); t < static_cast<double>(run.Time.back()); t += interval(random))
      spikes.push_back(std::llround(t));
    const ChanceMeasures chance = arena.ChanceOf(spikes, arena.MeasuresOf(spikes));
    const double p[] = {chance.Information.P.Value, chance.VectorLength.P.Value, chance.Speed.P.Value};
    for (size_t k = 0; k < 3; ++k)
      ++quarters[k][std::min(static_cast<size_t>(std::ceil(p[k] * 40) - 1) / 10, size_t{3})];
  }
  // Each quarter is expected to have 50; 4 standard deviations are 24.
  for (const auto& measure : quarters)
    for (const int count : measure) EXPECT_NEAR(count, 50, 24);
}

TEST(Chance, SeesACellThatKnowsWhereItIs) {
  const Positions run = RandomRun(300, 2);
  const LoadedTime time({{0, run.Time.back()}});
  MeasureSettings settings;
  settings.Chance.Shifts = 99;
  const Arena arena(run, time, settings);
  std::vector<int64_t> spikes;
  for (size_t i = 0; i < run.Time.size(); ++i)
    if (run.X[i] < 40 && run.Y[i] < 40) spikes.push_back(run.Time[i] + 1000);
  const ChanceMeasures chance = arena.ChanceOf(spikes, arena.MeasuresOf(spikes));
  EXPECT_EQ(chance.Information.P.Value, 0.01);
  EXPECT_EQ(chance.Stability.P.Value, 0.01);
  EXPECT_GT(chance.InformationAboveChance.Value, 0.5);
}

TEST(ParallelFor, DoesAllOfItAndHandsOnTheFirstFailure) {
  std::vector<int> done(1000);
  ParallelFor(done.size(), {}, [&](size_t i) { done[i] = 1; });
  EXPECT_EQ(std::count(done.begin(), done.end(), 1), 1000);
  EXPECT_THROW(ParallelFor(1000, {},
                           [](size_t i) {
                             if (i == 500) throw std::bad_alloc();
                           }),
               std::bad_alloc);
  EXPECT_THROW(ParallelFor(1000, Progress([](double) { return false; }), [](size_t) {}), Interrupted);
}

}  // namespace
}  // namespace pallomir
