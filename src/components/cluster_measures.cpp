#include "components/cluster_measures.h"

#include "components/isolation_features.h"
#include "components/stamp_matcher.h"
#include "session/work_pace.h"

namespace pallomir {

namespace {

constexpr int64_t kMostLearnt = 100'000;

}  // namespace

ClusterMeasures MeasureCluster(World& world, std::string_view spikeFile, std::span<const int64_t> spikes, int64_t first,
                               int64_t last, const SpikeRecords& records) {
  SpikeFile file(spikeFile);
  WorkPace pace(world);
  const auto within = [&](const SpikeRecord& record) { return record.Stamp >= first && record.Stamp <= last; };

  // Once through the stamps, to know how many spikes there are and so which of them are learnt from.
  constexpr double shareOfStamps = 0.2, shareOfLearning = 0.3;
  int64_t count = 0;
  file.ForEachSpike(
      records, [&](double share) { pace.Reached(shareOfStamps * share); },
      [&](const SpikeRecord& record) { count += within(record); });

  IsolationFeatures features;
  WireSamples samples;
  const int64_t every = 1 + (count - 1) / kMostLearnt;
  int64_t number = 0;
  file.ForEachSpike(
      records, [&](double share) { pace.Reached(shareOfStamps + shareOfLearning * share); },
      [&](const SpikeRecord& record) {
        if (!within(record) || number++ % every != 0) return;
        record.ReadSamples(samples);
        features.Learn(samples);
      });
  features.FindComponents(static_cast<size_t>(count));

  StampMatcher matcher(spikes);
  WaveformAverager averager;
  std::vector<uint8_t> member;
  member.reserve(static_cast<size_t>(count));
  constexpr double before = shareOfStamps + shareOfLearning;
  file.ForEachSpike(
      records, [&](double share) { pace.Reached(before + (1 - before) * share); },
      [&](const SpikeRecord& record) {
        if (!within(record)) return;
        record.ReadSamples(samples);
        features.Measure(samples);
        member.push_back(matcher.Take(record.Stamp));
        if (member.back()) averager.Add(samples);
      });

  ClusterMeasures measures;
  measures.Average = averager.Result(file.MicrovoltsPerCount());
  measures.InMicrovolts = file.ScaleKnown();
  measures.Apart = IsolationOf(features.TakeColumns(), member);
  measures.DeadTime = file.DeadTime();
  measures.Missing = matcher.Missing();
  measures.Ambiguous = matcher.Ambiguous();
  measures.Unreadable = static_cast<int64_t>(file.Unreadable());
  measures.TrailingBytes = static_cast<int64_t>(file.TrailingBytes());
  return measures;
}

}  // namespace pallomir
