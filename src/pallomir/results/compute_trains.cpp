#include "pallomir/results/compute_trains.h"

#include <algorithm>

#include "pallomir/results/explanations.h"
#include "pallomir/session/work_pace.h"

namespace pallomir {

namespace {

bool HasPairs(const TrainAutocorrelation& correlation) {
  return std::any_of(correlation.Far.Pairs.begin(), correlation.Far.Pairs.end(), [](int64_t n) { return n > 0; });
}

}  // namespace

AutocorrelationResult ComputeAutoCorr(World& world, const std::filesystem::path& clusterFile,
                                      const std::filesystem::path& timeFile, const std::filesystem::path& outputFile) {
  const SpikeTimes spikes = ReadSpikeTimes(world, clusterFile, timeFile);
  AutocorrelationResult result;
  WorkPace pace(world);
  result.Correlation = AutocorrelationOf(spikes.Times, pace);
  SetSpikes(result.Used, spikes);
  result.Explanation = WhyNoSpikes(result.Used, spikes.Range);
  if (result.Explanation.empty() && !HasPairs(result.Correlation))
    result.Explanation = spikes.Times.size() == 1 ? "The cluster has a single spike within its time range."
                                                  : "No two spikes of the cluster are less than 500 ms apart.";
  WriteAutocorrelationFile(result, outputFile);
  return result;
}

IntervalResult ComputeLogISI(World& world, const std::filesystem::path& clusterFile,
                             const std::filesystem::path& timeFile, const std::filesystem::path& outputFile) {
  const SpikeTimes spikes = ReadSpikeTimes(world, clusterFile, timeFile);
  IntervalResult result;
  result.Intervals = LogIntervalsOf(spikes.Times);
  SetSpikes(result.Used, spikes);
  result.Explanation = WhyNoSpikes(result.Used, spikes.Range);
  const LogIntervals& intervals = result.Intervals;
  if (result.Explanation.empty() && intervals.Intervals == 0)
    result.Explanation = "The cluster has a single spike within its time range: there is no interval.";
  if (intervals.Intervals > 0 && intervals.Intervals == intervals.Below + intervals.Above)
    result.Explanation = "No interval lies between 0.1 ms and 100 s.";
  WriteIntervalFile(result, outputFile);
  return result;
}

}  // namespace pallomir
