#include "pallomir/results/recorded_waveforms.h"

#include <utility>

#include "pallomir/science/waveforms/isolation_features.h"

namespace pallomir {

namespace {

constexpr size_t kMostKept = (size_t{1} << 30) / sizeof(WireSamples);
constexpr size_t kMostLearnt = 100'000;

}  // namespace

RecordedWaveforms::RecordedWaveforms(const std::filesystem::path& path, LoadedTime time, const Progress& progress,
                                     Samples samples)
    : file_(path), time_(std::move(time)) {
  bool keep = samples == Samples::Kept;
  WireSamples kept;
  file_.ForEachSpike([&](double share) { progress.Reached(share); },
                     [&](const SpikeRecord& record) {
                       if (!time_.At(record.Stamp)) return;
                       stamps_.push_back(record.Stamp);
                       numbers_.push_back(record.Number);
                       if (!keep) return;
                       if (kept_.size() == kMostKept) {
                         keep = false;
                         kept_ = {};
                         return;
                       }
                       record.ReadSamples(kept);
                       kept_.push_back(kept);
                     });
}

void RecordedWaveforms::ForEach(const Progress& progress, const std::function<void(size_t, const WireSamples&)>& use) {
  if (!kept_.empty()) {
    for (size_t i = 0; i < kept_.size(); ++i) {
      use(i, kept_[i]);
      if (i % 4096 == 0) progress.Reached(static_cast<double>(i) / static_cast<double>(kept_.size()));
    }
    return;
  }
  size_t index = 0;
  WireSamples samples;
  file_.ForEachSpike([&](double share) { progress.Reached(share); },
                     [&](const SpikeRecord& record) {
                       if (!time_.At(record.Stamp)) return;
                       record.ReadSamples(samples);
                       use(index++, samples);
                     });
}

SpikeFeatures FeaturesOf(RecordedWaveforms& recorded, const Progress& progress,
                         const std::function<void(size_t, const WireSamples&)>& use) {
  const size_t count = recorded.Stamps().size(), every = count == 0 ? 1 : 1 + (count - 1) / kMostLearnt;
  IsolationFeatures features;
  recorded.ForEach(progress.Part(0, 0.5), [&](size_t i, const WireSamples& samples) {
    if (i % every == 0) features.Learn(samples);
  });
  features.FindComponents(count);
  recorded.ForEach(progress.Part(0.5, 1), [&](size_t i, const WireSamples& samples) {
    features.Measure(samples);
    if (use) use(i, samples);
  });
  SpikeFeatures all{features.TakeColumns(), {}};
  all.All = MomentsOf(all.Columns);
  return all;
}

}  // namespace pallomir
