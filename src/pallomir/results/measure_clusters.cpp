#include "pallomir/results/measure_clusters.h"

#include <algorithm>
#include <array>
#include <bit>
#include <memory>

#include "pallomir/files/file_utility.h"
#include "pallomir/files/platform.h"
#include "pallomir/recorded/position_file.h"
#include "pallomir/results/cut_points.h"
#include "pallomir/results/recorded_waveforms.h"
#include "pallomir/science/parallel_for.h"
#include "pallomir/science/statistics/pearson.h"

namespace pallomir {

namespace {

std::vector<uint8_t> MembersOf(const std::vector<ClusterSet>& clustersOf, int cluster) {
  std::vector<uint8_t> member(clustersOf.size());
  for (size_t i = 0; i < member.size(); ++i) member[i] = clustersOf[i] >> cluster & 1;
  return member;
}

/// Measures one cut, file by file.
class Measurer {
 public:
  Measurer(const Session& session, const MeasureSources& sources)
      : sources_(sources), points_(session.Points, sources_.Time), sets_(ClusterSetsOf(session.Points)) {
    cut_.Settings = sources.Settings;
    cut_.LoadedSeconds = static_cast<double>(sources.Time.Length()) / 1e6;
    for (int c = 1; c < kClusterSlots; ++c) {
      if (!session.ClusterDefined[c]) continue;
      cut_.Clusters.emplace_back().Number = c;
      spikes_.push_back(points_.SpikesOf(sets_, c));
    }
  }

  void MeasureWaveforms(const Progress& progress) {
    if (!FileUtility::FileExists(sources_.SpikeFile)) {
      cut_.WhyNoSpikeFile = "There is no spike file " + PathText(sources_.SpikeFile) + ".";
      return;
    }
    RecordedWaveforms recorded(sources_.SpikeFile, sources_.Time, progress.Part(0, 0.2));
    cut_.InMicrovolts = recorded.File().ScaleKnown();
    cut_.DeadTime = recorded.File().DeadTime();
    const std::vector<ClusterSet> clustersOf = ClustersOfRecords(recorded.Stamps());
    std::array<ClusterWaveforms, kClusterSlots> waveforms;
    const SpikeFeatures features =
        FeaturesOf(recorded, progress.Part(0.2, 0.5), [&](size_t i, const WireSamples& samples) {
          for (ClusterSet rest = clustersOf[i]; rest != 0; rest &= rest - 1)
            waveforms[static_cast<size_t>(std::countr_zero(rest))].Add(recorded.Stamps()[i], samples);
        });
    moments_.resize(cut_.Clusters.size());
    ParallelFor(cut_.Clusters.size(), progress.Part(0.5, 1), [&](size_t k) {
      MeasuredCluster& cluster = cut_.Clusters[k];
      waveforms[static_cast<size_t>(cluster.Number)].Measure(cluster, recorded.File(), sources_.Time,
                                                             spikes_[k].size());
      moments_[k] = MeasureIsolation(cluster, features, MembersOf(clustersOf, cluster.Number));
    });
  }

  void MeasureTrains() {
    for (size_t k = 0; k < cut_.Clusters.size(); ++k)
      cut_.Clusters[k].Train = TrainMeasuresOf(TimesOf(spikes_[k]), sources_.Time, {.Censored = cut_.DeadTime});
  }

  void MeasureBehaviour(const Progress& progress) {
    if (!FileUtility::FileExists(sources_.PositionFile)) {
      cut_.WhyNoPositions = "There is no position file " + PathText(sources_.PositionFile) + ".";
      return;
    }
    const Arena arena(ReadPositions(sources_.PositionFile, progress.Part(0, 0.1)), sources_.Time, sources_.Settings);
    maps_.resize(cut_.Clusters.size());
    ParallelFor(cut_.Clusters.size(), progress.Part(0.1, sources_.Chance ? 0.2 : 1), [&](size_t k) {
      const std::vector<int64_t> times = TimesOf(spikes_[k]);
      maps_[k] = arena.RateOf(times);
      cut_.Clusters[k].Behaviour = arena.MeasuresOf(times);
    });
    if (!sources_.Chance) return;
    const auto count = static_cast<double>(cut_.Clusters.size());
    for (size_t k = 0; k < cut_.Clusters.size(); ++k) {
      const auto done = static_cast<double>(k);
      cut_.Clusters[k].Chance = arena.ChanceOf(TimesOf(spikes_[k]), cut_.Clusters[k].Behaviour,
                                               progress.Part(0.2 + 0.8 * done / count, 0.2 + 0.8 * (done + 1) / count));
    }
  }

  void MeasurePairs(const Progress& progress) {
    CountShared();
    std::vector<std::pair<size_t, size_t>> pairs;
    for (size_t a = 0; a < cut_.Clusters.size(); ++a)
      for (size_t b = a + 1; b < cut_.Clusters.size(); ++b) pairs.emplace_back(a, b);
    for (size_t p = 0; p < pairs.size(); ++p) {
      cut_.Pairs.push_back(PairOf(pairs[p].first, pairs[p].second));
      progress.Reached(static_cast<double>(p + 1) / static_cast<double>(pairs.size()));
    }
  }

  /// Does all of this, once.
  MeasuredCut Run(const Progress& progress) {
    const double waveforms = sources_.Chance ? 0.1 : 0.6, behaviour = sources_.Chance ? 0.98 : 0.9;
    MeasureWaveforms(progress.Part(0, waveforms));
    MeasureTrains();
    MeasureBehaviour(progress.Part(waveforms, behaviour));
    if (sources_.Pairs) MeasurePairs(progress.Part(behaviour, 1));
    return std::move(cut_);
  }

 private:
  std::vector<ClusterSet> ClustersOfRecords(const std::vector<int64_t>& stamps) const {
    std::vector<ClusterSet> clusters;
    clusters.reserve(stamps.size());
    for (const int64_t row : points_.RowsOfRecords(stamps)) clusters.push_back(row < 0 ? 0 : sets_[row]);
    return clusters;
  }

  void CountShared() {
    for (const int64_t row : points_.Row)
      for (ClusterSet rest = sets_[row]; rest != 0; rest &= rest - 1) {
        const int a = std::countr_zero(rest);
        for (ClusterSet others = rest & (rest - 1); others != 0; others &= others - 1)
          ++shared_[a][std::countr_zero(others)];
      }
  }

  MeasuredPair PairOf(size_t a, size_t b) const {
    MeasuredPair pair;
    pair.A = cut_.Clusters[a].Number;
    pair.B = cut_.Clusters[b].Number;
    pair.Lags = CorrelogramOf(spikes_[a], spikes_[b], sources_.Time, sources_.Settings.Correlogram);
    pair.Shared = shared_[pair.A][pair.B];
    if (!moments_.empty()) pair.Distance = ClusterDistance(moments_[a], moments_[b]);
    if (maps_.empty()) return pair;
    const double r = PearsonOf(maps_[a].Values, maps_[b].Values);
    pair.MapCorrelation =
        std::isnan(r) ? Measured::None("fewer than 20 visited bins, or a map without variation") : Measured(r);
    return pair;
  }

  const MeasureSources sources_;
  TimedPoints points_;
  std::vector<ClusterSet> sets_;  ///< by row
  MeasuredCut cut_;
  /// Points in both of two clusters, by their numbers, the smaller first.
  std::array<std::array<int64_t, kClusterSlots>, kClusterSlots> shared_{};
  // By index of the cluster in the cut:
  std::vector<std::vector<ClusterSpike>> spikes_;
  std::vector<FeatureMoments> moments_;
  std::vector<Map> maps_;
};

}  // namespace

MeasuredCut MeasureClusters(const Session& session, const MeasureSources& sources, const Progress& progress) {
  return Measurer(session, sources).Run(progress);
}

std::function<MeasuredCut(const Progress&)> PrepareMeasures(const Session& session, const MeasureSources& sources) {
  return [measurer = std::make_shared<Measurer>(session, sources)](const Progress& progress) {
    return measurer->Run(progress);
  };
}

}  // namespace pallomir
