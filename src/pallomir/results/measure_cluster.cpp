#include "pallomir/results/measure_cluster.h"

#include <algorithm>

namespace pallomir {

std::vector<int64_t> TimesOf(std::span<const ClusterSpike> spikes) {
  std::vector<int64_t> times(spikes.size());
  std::transform(spikes.begin(), spikes.end(), times.begin(), [](const ClusterSpike& spike) { return spike.Time; });
  return times;
}

void ClusterWaveforms::Add(int64_t stamp, const WireSamples& samples) {
  average_.Add(samples);
  heights_.Time.push_back(stamp);
  for (int wire = 0; wire < kWires; ++wire)
    heights_.Counts[wire].push_back(*std::max_element(samples[wire].begin(), samples[wire].end()));
}

void ClusterWaveforms::Measure(MeasuredCluster& cluster, const SpikeFile& file, const LoadedTime& time,
                               size_t spikes) const {
  cluster.Average = average_.Result(file.MicrovoltsPerCount());
  cluster.Waveform =
      WaveformMeasuresOf(cluster.Average, heights_, file.MicrovoltsPerCount(), file.SamplingRate(), time);
  cluster.Missing = static_cast<int64_t>(spikes) - cluster.Average.Spikes;
}

FeatureMoments MeasureIsolation(MeasuredCluster& cluster, const SpikeFeatures& features,
                                std::span<const uint8_t> member, const Progress& progress) {
  FeatureMoments moments = MomentsOf(features.Columns, member);
  cluster.Apart = IsolationOf(features.Columns, member, progress.Part(0, 0.3));
  cluster.Separate = SeparationOf(features.Columns, member, features.All, moments, progress.Part(0.3, 1));
  return moments;
}

}  // namespace pallomir
