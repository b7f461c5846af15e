#include "pallomir/science/trains/refractory.h"

#include <cmath>

#include "pallomir/science/statistics/binomial_interval.h"

namespace pallomir {

namespace {

int64_t CountPairs(std::span<const int64_t> spikes, double closer) {
  int64_t pairs = 0;
  size_t first = 0;
  for (size_t i = 0; i < spikes.size(); ++i) {
    while (static_cast<double>(spikes[i] - spikes[first]) >= closer) ++first;
    pairs += static_cast<int64_t>(i - first);
  }
  return pairs;
}

/// The smaller f of f (1 - f) = product, in a form without the cancellation that would make small shares imprecise.
Measured ByOne(double product) {
  if (product > 0.25) return {0.5, "no solution: more short intervals than one other cell explains"};
  return 2 * product / (1 + std::sqrt(1 - 4 * product));
}

/// 1 - sqrt(1 - x), likewise.
Measured ByMany(double x) {
  if (x > 1) return {1, "no solution: more short intervals than other cells explain"};
  return x / (1 + std::sqrt(1 - x));
}

const char* WhyNoContamination(const RefractoryMeasures& measures, double duration, double watched) {
  if (measures.Intervals == 0) return "no intervals";
  if (!(duration > 0)) return "no time is loaded";
  return watched > 0 ? nullptr : "the censored period covers the refractory period";
}

}  // namespace

RefractoryMeasures RefractoryMeasuresOf(std::span<const int64_t> spikes, const LoadedTime& time,
                                        const Refractory& refractory) {
  RefractoryMeasures measures;
  time.ForEachPart(spikes, [&](std::span<const int64_t> part) {
    measures.Intervals += static_cast<int64_t>(part.size()) - 1;
    for (size_t i = 1; i < part.size(); ++i)
      measures.Short += static_cast<double>(part[i] - part[i - 1]) < refractory.Period;
    measures.ShortPairs += CountPairs(part, refractory.Period);
  });
  const auto duration = static_cast<double>(time.Length()), count = static_cast<double>(spikes.size());
  const double watched = refractory.Period - refractory.Censored;
  const char* why = WhyNoContamination(measures, duration, watched);
  const Measured none = Measured::None(why ? why : "");
  measures.Share = measures.ContaminationByOne = measures.ContaminationByMany = {none, none, none};
  if (measures.Intervals == 0) return measures;

  const auto intervals = static_cast<double>(measures.Intervals), shorter = static_cast<double>(measures.Short);
  const Interval share = BinomialInterval(measures.Short, measures.Intervals);
  measures.Share = {shorter / intervals, share.Low, share.High};
  if (why) return measures;
  const auto one = [&](double violations) { return ByOne(violations * duration / (2 * watched * count * count)); };
  const auto many = [&](double violations) {
    return ByMany(violations * (duration - 2 * count * refractory.Censored) / (watched * count * count));
  };
  const double low = share.Low * intervals, high = share.High * intervals;
  const double others = static_cast<double>(measures.ShortPairs) - shorter;
  measures.ContaminationByOne = {one(shorter), one(low), one(high)};
  measures.ContaminationByMany = {many(shorter + others), many(low + others), many(high + others)};
  return measures;
}

}  // namespace pallomir
