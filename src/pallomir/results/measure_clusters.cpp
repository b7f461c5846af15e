#include "pallomir/results/measure_clusters.h"

#include <algorithm>
#include <array>
#include <bit>
#include <memory>

#include "pallomir/files/file_utility.h"
#include "pallomir/files/platform.h"
#include "pallomir/recorded/position_file.h"
#include "pallomir/results/recorded_waveforms.h"
#include "pallomir/science/parallel_for.h"
#include "pallomir/science/statistics/pearson.h"
#include "pallomir/science/waveforms/isolation_features.h"

namespace pallomir {

namespace {

constexpr size_t kMostLearnt = 100'000;

/// The clusters that a point is in, one bit each.
using ClusterSet = uint32_t;

/// The points within the loaded time, in time order.
struct Point {
  int64_t Time;
  int64_t Row;
  ClusterSet Clusters;
};

std::vector<Point> PointsWithin(const Session& session, const LoadedTime& time) {
  const auto stamps = session.Points.Stamps().first(session.Points.Rows());
  std::vector<ClusterSet> clusters(stamps.size());
  for (int slot = 0; slot < session.Points.SlotsInUse(); ++slot) {
    const auto members = session.Points.Slot(slot);
    for (size_t i = 0; i < stamps.size(); ++i) clusters[i] |= (ClusterSet{1} << members[i]) & ~ClusterSet{1};
  }
  std::vector<Point> points;
  for (size_t i = 0; i < stamps.size(); ++i) {
    const auto stamp = static_cast<int64_t>(std::min<uint64_t>(stamps[i], kFarthestStamp));
    if (time.At(stamp)) points.push_back({stamp, static_cast<int64_t>(i), clusters[i]});
  }
  std::stable_sort(points.begin(), points.end(), [](const Point& a, const Point& b) { return a.Time < b.Time; });
  return points;
}

std::vector<ClusterSpike> SpikesOf(const std::vector<Point>& points, int cluster) {
  std::vector<ClusterSpike> spikes;
  for (const Point& point : points)
    if (point.Clusters >> cluster & 1) spikes.push_back({point.Time, point.Row});
  return spikes;
}

/// For each record of the spike file the clusters of its point: of records and points with one stamp the first belongs
/// to the first, and so on.
std::vector<ClusterSet> ClustersOfRecords(const std::vector<Point>& points, const std::vector<int64_t>& stamps) {
  std::vector<size_t> order(stamps.size());
  for (size_t i = 0; i < order.size(); ++i) order[i] = i;
  if (!std::is_sorted(stamps.begin(), stamps.end()))
    std::stable_sort(order.begin(), order.end(), [&](size_t a, size_t b) { return stamps[a] < stamps[b]; });
  std::vector<ClusterSet> clusters(stamps.size());
  auto point = points.begin();
  for (const size_t record : order) {
    while (point != points.end() && point->Time < stamps[record]) ++point;
    if (point != points.end() && point->Time == stamps[record]) clusters[record] = point++->Clusters;
  }
  return clusters;
}

/// What the waveforms of a cluster leave behind when they have gone by.
struct Gathered {
  WaveformAverager Average;
  SpikeHeights Heights;

  void Add(int64_t stamp, const WireSamples& samples) {
    Average.Add(samples);
    Heights.Time.push_back(stamp);
    for (int wire = 0; wire < kWires; ++wire)
      Heights.Counts[wire].push_back(*std::max_element(samples[wire].begin(), samples[wire].end()));
  }
};

/// The waveforms of all clusters in one pass, and the features of all spikes.
struct GatheredWaveforms {
  std::array<Gathered, kClusterSlots> Clusters;
  std::vector<ClusterSet> ClustersOf;  ///< of each record
  FeatureColumns Features;
};

GatheredWaveforms GatherWaveforms(RecordedWaveforms& recorded, const std::vector<Point>& points,
                                  const Progress& progress) {
  GatheredWaveforms gathered;
  gathered.ClustersOf = ClustersOfRecords(points, recorded.Stamps());
  const size_t count = recorded.Stamps().size(), every = count == 0 ? 1 : 1 + (count - 1) / kMostLearnt;
  IsolationFeatures features;
  recorded.ForEach(progress.Part(0, 0.5), [&](size_t i, const WireSamples& samples) {
    if (i % every == 0) features.Learn(samples);
  });
  features.FindComponents(count);
  recorded.ForEach(progress.Part(0.5, 1), [&](size_t i, const WireSamples& samples) {
    features.Measure(samples);
    for (ClusterSet rest = gathered.ClustersOf[i]; rest != 0; rest &= rest - 1)
      gathered.Clusters[static_cast<size_t>(std::countr_zero(rest))].Add(recorded.Stamps()[i], samples);
  });
  gathered.Features = features.TakeColumns();
  return gathered;
}

std::vector<uint8_t> MembersOf(const std::vector<ClusterSet>& clustersOf, int cluster) {
  std::vector<uint8_t> member(clustersOf.size());
  for (size_t i = 0; i < member.size(); ++i) member[i] = clustersOf[i] >> cluster & 1;
  return member;
}

std::vector<int64_t> TimesOf(const std::vector<ClusterSpike>& spikes) {
  std::vector<int64_t> times(spikes.size());
  std::transform(spikes.begin(), spikes.end(), times.begin(), [](const ClusterSpike& spike) { return spike.Time; });
  return times;
}

/// Measures one cut, file by file.
class Measurer {
 public:
  Measurer(const Session& session, const MeasureSources& sources)
      : sources_(sources), points_(PointsWithin(session, sources_.Time)) {
    cut_.Settings = sources.Settings;
    cut_.LoadedSeconds = static_cast<double>(sources.Time.Length()) / 1e6;
    for (int c = 1; c < kClusterSlots; ++c) {
      if (!session.ClusterDefined[c]) continue;
      cut_.Clusters.emplace_back().Number = c;
      spikes_.push_back(SpikesOf(points_, c));
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
    const GatheredWaveforms gathered = GatherWaveforms(recorded, points_, progress.Part(0.2, 0.5));
    const FeatureMoments all = MomentsOf(gathered.Features);
    moments_.resize(cut_.Clusters.size());
    ParallelFor(cut_.Clusters.size(), progress.Part(0.5, 1), [&](size_t k) {
      MeasuredCluster& cluster = cut_.Clusters[k];
      const Gathered& own = gathered.Clusters[static_cast<size_t>(cluster.Number)];
      const std::vector<uint8_t> member = MembersOf(gathered.ClustersOf, cluster.Number);
      moments_[k] = MomentsOf(gathered.Features, member);
      cluster.Average = own.Average.Result(recorded.File().MicrovoltsPerCount());
      cluster.Waveform = WaveformMeasuresOf(cluster.Average, own.Heights, recorded.File().MicrovoltsPerCount(),
                                            recorded.File().SamplingRate(), sources_.Time);
      cluster.Apart = IsolationOf(gathered.Features, member);
      cluster.Separate = SeparationOf(gathered.Features, member, all, moments_[k]);
      cluster.Missing = static_cast<int64_t>(spikes_[k].size()) - cluster.Average.Spikes;
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
  void CountShared() {
    for (const Point& point : points_)
      for (ClusterSet rest = point.Clusters; rest != 0; rest &= rest - 1) {
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
  std::vector<Point> points_;
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
