#include "pallomir/results/recorded_waveforms.h"

#include <utility>

namespace pallomir {

namespace {

constexpr size_t kMostKept = (size_t{1} << 30) / sizeof(WireSamples);

}  // namespace

RecordedWaveforms::RecordedWaveforms(const std::filesystem::path& path, LoadedTime time, const Progress& progress)
    : file_(path), time_(std::move(time)) {
  bool keep = true;
  WireSamples samples;
  file_.ForEachSpike([&](double share) { progress.Reached(share); },
                     [&](const SpikeRecord& record) {
                       if (!time_.At(record.Stamp)) return;
                       stamps_.push_back(record.Stamp);
                       if (!keep) return;
                       if (kept_.size() == kMostKept) {
                         keep = false;
                         kept_ = {};
                         return;
                       }
                       record.ReadSamples(samples);
                       kept_.push_back(samples);
                     });
}

void RecordedWaveforms::ForEach(const Progress& progress, const std::function<void(size_t, const WireSamples&)>& use) {
  if (kept_.size() == stamps_.size()) {
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

}  // namespace pallomir
