#include "pallomir/results/cluster_measures.h"

#include "pallomir/recorded/spike_file.h"
#include "pallomir/science/trains/stamp_matcher.h"
#include "pallomir/science/waveforms/isolation_features.h"
#include "pallomir/session/work_pace.h"

namespace pallomir {

namespace {

constexpr int64_t kMostLearnt = 100'000;

/// The spikes of a file within a time range, for several passes.
struct SpikesWithin {
  SpikeFile File;
  TimeRange Range;
  WorkPace Pace;

  /// Calls use(record) for each; `from` and `to` are the shares of the total work done before and after this pass.
  template <class Use>
  void ForEach(double from, double to, Use use) {
    File.ForEachSpike([&](double share) { Pace.Reached(from + (to - from) * share); },
                      [&](const SpikeRecord& record) {
                        if (Range.Holds(record.Stamp)) use(record);
                      });
  }
};

// Shares of the total work done after counting, learning from, and measuring the spikes.
constexpr double kCounted = 0.2, kLearnt = 0.5, kMeasured = 0.8;

int64_t CountOf(SpikesWithin& spikes) {
  int64_t count = 0;
  spikes.ForEach(0, kCounted, [&](const SpikeRecord&) { ++count; });
  return count;
}

void LearnFrom(SpikesWithin& spikes, int64_t count, IsolationFeatures& features) {
  const int64_t every = 1 + (count - 1) / kMostLearnt;
  int64_t number = 0;
  WireSamples samples;
  spikes.ForEach(kCounted, kLearnt, [&](const SpikeRecord& record) {
    if (number++ % every != 0) return;
    record.ReadSamples(samples);
    features.Learn(samples);
  });
  features.FindComponents(static_cast<size_t>(count));
}

}  // namespace

ClusterMeasures MeasureCluster(World& world, const std::filesystem::path& spikeFile, std::span<const int64_t> spikes,
                               const TimeRange& range) {
  SpikesWithin all{SpikeFile(spikeFile), range, WorkPace(world)};
  const int64_t count = CountOf(all);
  IsolationFeatures features;
  LearnFrom(all, count, features);

  StampMatcher matcher(spikes);
  WaveformAverager averager;
  std::vector<uint8_t> member;
  member.reserve(static_cast<size_t>(count));
  WireSamples samples;
  all.ForEach(kLearnt, kMeasured, [&](const SpikeRecord& record) {
    record.ReadSamples(samples);
    features.Measure(samples);
    member.push_back(matcher.Take(record.Stamp));
    if (member.back()) averager.Add(samples);
  });

  ClusterMeasures measures;
  measures.Average = averager.Result(all.File.MicrovoltsPerCount());
  measures.InMicrovolts = all.File.ScaleKnown();
  measures.Apart = IsolationOf(features.TakeColumns(), member, Progress(all.Pace).Part(kMeasured, 1));
  measures.DeadTime = all.File.DeadTime();
  measures.Missing = matcher.Missing();
  measures.Ambiguous = matcher.Ambiguous();
  measures.Unreadable = static_cast<int64_t>(all.File.Unreadable());
  measures.TrailingBytes = static_cast<int64_t>(all.File.TrailingBytes());
  return measures;
}

}  // namespace pallomir
