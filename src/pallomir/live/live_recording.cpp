#include "pallomir/live/live_recording.h"

#include <algorithm>

#include "pallomir/recorded/spike_file.h"
#include "pallomir/results/recorded_waveforms.h"

namespace pallomir {

namespace {

constexpr size_t kRateBins = 60;

/// The dead time that the spike file states; 0 without a file that can be read.
double DeadTimeOf(const std::filesystem::path& spikeFile) {
  try {
    return SpikeFile(spikeFile).DeadTime();
  } catch (const CommandError&) {
    return 0;
  }
}

std::vector<double> RateOverTime(std::span<const int64_t> spikes, const LoadedTime& time) {
  std::vector<double> rate(kRateBins);
  for (const int64_t spike : spikes) ++rate[time.ShareOf(spike, kRateBins)];
  const double seconds = static_cast<double>(time.Length()) / 1e6 / static_cast<double>(kRateBins);
  for (double& value : rate) value = seconds > 0 ? value / seconds : 0;
  return rate;
}

}  // namespace

std::vector<uint8_t> RecordPlaces::MembersOf(std::span<const ClusterSet> sets, int cluster) const {
  std::vector<uint8_t> member(Rows.size());
  for (size_t i = 0; i < member.size(); ++i) member[i] = Rows[i] >= 0 && (sets[Rows[i]] >> cluster & 1);
  return member;
}

std::shared_ptr<const RecordPlaces> FindPlaces(const LiveRecording& recording, const Progress& progress) {
  const RecordedWaveforms recorded(recording.SpikeFile, recording.Time, progress, RecordedWaveforms::Samples::Reread);
  return std::make_shared<RecordPlaces>(RecordPlaces{recorded.Stamps(), recorded.Numbers(),
                                                     recording.Points.RowsOfRecords(recorded.Stamps()),
                                                     recorded.File().ScaleKnown()});
}

void MeasureTrain(LiveCluster& cluster, const LiveRecording& recording, std::span<const ClusterSpike> spikes,
                  const Progress& progress) {
  const std::vector<int64_t> times = TimesOf(spikes);
  cluster.Measures.Train = TrainMeasuresOf(times, recording.Time, {.Censored = DeadTimeOf(recording.SpikeFile)});
  progress.Reached(0.5);
  cluster.Plots.Train = std::make_shared<CellPlots::Firing>(CellPlots::Firing{
      AutocorrelationOf(times, progress.Part(0.5, 1)), LogIntervalsOf(times), RateOverTime(times, recording.Time)});
}

void MeasureWaveforms(LiveCluster& cluster, const LiveRecording& recording, const RecordPlaces& places,
                      std::span<const ClusterSet> sets, const Progress& progress) {
  const int number = cluster.Measures.Number;
  std::vector<uint64_t> numbers;
  std::vector<int64_t> stamps;
  for (size_t i = 0; i < places.Rows.size(); ++i) {
    if (places.Rows[i] < 0 || !(sets[places.Rows[i]] >> number & 1)) continue;
    numbers.push_back(places.Numbers[i]);
    stamps.push_back(places.Stamps[i]);
  }
  SpikeFile file(recording.SpikeFile);
  ClusterWaveforms waveforms;
  auto drawn = std::make_shared<CellPlots::Overlaid>();
  drawn->UnitsPerCount = file.MicrovoltsPerCount();
  const size_t every = 1 + numbers.size() / kMostDrawn;
  constexpr size_t kLook = 1024;
  file.ForSpikes(numbers, [&](size_t i, const WireSamples& samples) {
    waveforms.Add(stamps[i], samples);
    if (i % every == 0) drawn->Samples.push_back(samples);
    if (i % kLook == 0) progress.Reached(static_cast<double>(i) / static_cast<double>(numbers.size()));
  });
  waveforms.Measure(cluster.Measures, file, recording.Time, static_cast<size_t>(cluster.Spikes));
  cluster.Plots.Heights = std::make_shared<SpikeHeights>(waveforms.Heights());
  cluster.Plots.Waveforms = std::move(drawn);
}

void MeasurePlace(LiveCluster& cluster, const Arena& arena, std::span<const ClusterSpike> spikes) {
  const std::vector<int64_t> times = TimesOf(spikes);
  cluster.Measures.Behaviour = arena.MeasuresOf(times);
  cluster.Plots.Place = std::make_shared<CellPlots::Space>(
      CellPlots::Space{arena.RateOf(times), arena.DirectionOf(times), arena.PixelsPerCm()});
}

}  // namespace pallomir
