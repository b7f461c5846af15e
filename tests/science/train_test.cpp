#include "pallomir/science/trains/train.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace pallomir {
namespace {

TrainAutocorrelation Correlated(const std::vector<int64_t>& spikes) {
  return AutocorrelationOf(spikes);
}

/// The non-zero counts, as "bin:count".
std::string Shown(const std::vector<int64_t>& counts) {
  std::string text;
  for (size_t k = 0; k < counts.size(); ++k)
    if (counts[k] != 0) text += std::to_string(k) + ":" + std::to_string(counts[k]) + " ";
  return text;
}

TEST(TrainAutocorrelation, PairsFallIntoHalfOpenBins) {
  struct Case {
    std::vector<int64_t> Spikes;
    std::string Near, Far;
  };
  const Case cases[] = {
      {{}, "", ""},
      {{5}, "", ""},
      {{0, 999}, "0:1 ", "0:1 "},
      {{0, 1000}, "1:1 ", "0:1 "},
      {{0, 49'999}, "49:1 ", "9:1 "},
      {{0, 50'000}, "", "10:1 "},
      {{0, 499'999}, "", "99:1 "},
      {{0, 500'000}, "", ""},
      {{7, 7, 7}, "0:3 ", "0:3 "},
      {{-3000, 0, 3000, 10'500}, "3:2 6:1 7:1 10:1 13:1 ", "0:2 1:2 2:2 "},
  };
  for (const Case& c : cases) {
    const TrainAutocorrelation correlation = Correlated(c.Spikes);
    EXPECT_EQ(Shown(correlation.Near.Pairs), c.Near) << c.Spikes.size();
    EXPECT_EQ(Shown(correlation.Far.Pairs), c.Far) << c.Spikes.size();
  }
}

/// Including trains so dense that neighbours are counted by searching.
TEST(TrainAutocorrelation, IsTheCountOfAllPairs) {
  std::mt19937_64 random(11);
  for (const uint64_t span : {20'000'000ULL, 900'000ULL, 30'000ULL}) {
    std::vector<int64_t> spikes(6000);
    for (int64_t& spike : spikes) spike = 1'700'000'000'000'000 + static_cast<int64_t>(random() % span);
    std::sort(spikes.begin(), spikes.end());
    std::vector<int64_t> near(50), far(100);
    for (size_t i = 0; i < spikes.size(); ++i)
      for (size_t j = i + 1; j < spikes.size(); ++j) {
        const int64_t lag = spikes[j] - spikes[i];
        if (lag < 50'000) ++near[static_cast<size_t>(lag / 1000)];
        if (lag < 500'000) ++far[static_cast<size_t>(lag / 5000)];
      }
    const TrainAutocorrelation correlation = Correlated(spikes);
    EXPECT_EQ(correlation.Near.Pairs, near) << span;
    EXPECT_EQ(correlation.Far.Pairs, far) << span;
  }
}

TEST(TrainAutocorrelation, OfAPoissonTrainIsFlat) {
  std::mt19937_64 random(5);
  constexpr double seconds = 4000, rate = 10;
  std::vector<int64_t> spikes;
  for (double time = 0; time < seconds;) {
    time -= std::log1p(-static_cast<double>(random() >> 11) * 0x1p-53) / rate;
    spikes.push_back(static_cast<int64_t>(time * 1e6));
  }
  const TrainAutocorrelation correlation = Correlated(spikes);
  for (const LagHistogram* histogram : {&correlation.Near, &correlation.Far}) {
    const double expected = rate * rate * seconds * static_cast<double>(histogram->Width) / 1e6;
    for (size_t k = 0; k < histogram->Pairs.size(); ++k)
      EXPECT_NEAR(static_cast<double>(histogram->Pairs[k]), expected, 4 * std::sqrt(expected)) << k;
  }
}

TEST(LogIntervals, HasTenEdgesPerDecade) {
  EXPECT_EQ(LogEdge(0), 0.1);
  EXPECT_EQ(LogEdge(10), 1);
  EXPECT_EQ(LogEdge(60), 100'000);
  EXPECT_NEAR(LogEdge(13), std::pow(10, 0.3), 1e-15);
  // Intervals at both sides of edges: 0.1 ms, 10 ms and 100 s exactly, and 0.1 x 10^0.1 = 0.12589 ms between two
  // stamps.
  std::vector<int64_t> spikes = {0};
  for (const int64_t interval : {99, 100, 125, 126, 9'999, 10'000, 1'999, 2'000, 99'999'999, 100'000'000})
    spikes.push_back(spikes.back() + interval);
  const LogIntervals intervals = LogIntervalsOf(spikes);
  EXPECT_EQ(Shown({intervals.Counts.begin(), intervals.Counts.end()}), "0:2 1:1 13:2 19:1 20:1 59:1 ");
  EXPECT_EQ(intervals.Below, 1);
  EXPECT_EQ(intervals.Above, 1);
  EXPECT_EQ(intervals.Intervals, 10);
  EXPECT_EQ(intervals.Refractory, 5);
  EXPECT_EQ(intervals.RefractoryShare(), 0.5);
  EXPECT_EQ(LogIntervalsOf(std::vector<int64_t>{3}).RefractoryShare(), 0);
}

}  // namespace
}  // namespace pallomir
