#include "pallomir/science/trains/train_measures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>
#include <vector>

namespace pallomir {
namespace {

using Train = std::vector<int64_t>;

constexpr int64_t kHour = 3'600'000'000;

LoadedTime OneHour() {
  return LoadedTime({{0, kHour}});
}

/// A Poisson train, but for a refractory period; microseconds.
Train PoissonTrain(double rate, double refractory, unsigned seed) {
  std::mt19937_64 random(seed);
  std::exponential_distribution<double> interval(1 / (1e6 / rate - refractory));
  Train train;
  for (double t = interval(random); t < static_cast<double>(kHour); t += refractory + interval(random))
    train.push_back(std::llround(t));
  return train;
}

Train Joined(Train train, const Train& other) {
  train.insert(train.end(), other.begin(), other.end());
  std::sort(train.begin(), train.end());
  return train;
}

TEST(TrainMeasures, CountWithinThePartsOnly) {
  // Two parts of one second; an interval of 1 ms across the gap does not count, nor does the pair.
  const LoadedTime time({{0, 1'000'000}, {1'001'000, 2'001'000}});
  const Train train = {0, 500'000, 501'000, 502'500, 1'000'000, 1'001'000, 1'002'000};
  const TrainMeasures measures = TrainMeasuresOf(train, time, {});
  EXPECT_EQ(measures.Spikes, 7);
  EXPECT_EQ(measures.Refractory.Intervals, 5);
  EXPECT_EQ(measures.Refractory.Short, 3);       // 1, 1.5 and 1 ms
  EXPECT_EQ(measures.Refractory.ShortPairs, 3);  // 2.5 ms is too far
  EXPECT_EQ(measures.Rate.Value, 3.5);
  EXPECT_EQ(measures.Presence.Value, 0.03);  // 0 %, 25 %, 50 %
  EXPECT_EQ(measures.Bursts.Value, 5 / 7.0);
  EXPECT_EQ(time.ShareOf(2'001'000, 100), 99U);
  EXPECT_EQ(time.StampAt(1'000'000), 1'001'000);
}

TEST(TrainMeasures, OfAPoissonTrainAreThoseOfTheory) {
  const TrainMeasures measures = TrainMeasuresOf(PoissonTrain(10, 0, 1), OneHour(), {});
  EXPECT_NEAR(measures.Variation.Value, 1, 0.02);
  EXPECT_NEAR(measures.LocalVariation.Value, 1, 0.02);
  EXPECT_NEAR(measures.Refractory.Share.Value.Value, 1 - std::exp(-0.02), 0.002);
  EXPECT_NEAR(measures.Bursts.Value, 1 - std::exp(-0.12), 0.005);
  EXPECT_NEAR(measures.ThetaIndex.Value, 1, 4);  // of noise
  EXPECT_GT(measures.Refractory.ContaminationByMany.Value.Value, 0.9) << "all spikes are foreign to each other";
}

TEST(TrainMeasures, RecoverContamination) {
  const Train own = PoissonTrain(18, 2000, 1);
  const TrainMeasures one = TrainMeasuresOf(Joined(own, PoissonTrain(2, 2000, 2)), OneHour(), {});
  EXPECT_NEAR(one.Refractory.ContaminationByOne.Value.Value, 0.1, 0.01);
  EXPECT_LT(one.Refractory.ContaminationByOne.Low.Value, 0.1);
  EXPECT_GT(one.Refractory.ContaminationByOne.High.Value, 0.1);
  const TrainMeasures many = TrainMeasuresOf(Joined(own, PoissonTrain(2, 0, 3)), OneHour(), {});
  EXPECT_NEAR(many.Refractory.ContaminationByMany.Value.Value, 0.1, 0.01);
  EXPECT_LT(many.Refractory.ContaminationByMany.Low.Value, many.Refractory.ContaminationByMany.Value.Value);
}

TEST(TrainMeasures, FindTheta) {
  std::mt19937_64 random(1);
  std::uniform_real_distribution<double> chance;
  Train train;
  for (int64_t t = 0; t < kHour / 6; t += 1000)
    if (chance(random) < 0.01 * (1 + std::cos(2 * std::numbers::pi * 8 * static_cast<double>(t) / 1e6)))
      train.push_back(t);
  const Theta theta = ThetaOf(train, LoadedTime({{0, kHour / 6}}));
  EXPECT_NEAR(theta.Frequency.Value, 8, 0.05);
  EXPECT_GT(theta.Index.Value, 20);
}

TEST(TrainMeasures, SayWhyTheyAreNotKnown) {
  const TrainMeasures none = TrainMeasuresOf({}, OneHour(), {});
  EXPECT_EQ(none.Rate.Value, 0);
  for (const Measured& measured : {none.Refractory.Share.Value, none.Refractory.ContaminationByOne.Value, none.Bursts,
                                   none.Variation, none.LocalVariation, none.ThetaIndex}) {
    EXPECT_FALSE(measured.Known());
    EXPECT_STRNE(measured.Why, "");
  }
  const TrainMeasures burst = TrainMeasuresOf(Train{0, 1000, 2000, 3000}, LoadedTime({{0, 10'000}}), {});
  EXPECT_EQ(burst.Refractory.ContaminationByOne.Value.Value, 0.5) << "so many violations have no solution";
  EXPECT_STRNE(burst.Refractory.ContaminationByOne.Value.Why, "");
}

}  // namespace
}  // namespace pallomir
