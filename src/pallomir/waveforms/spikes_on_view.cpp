#include "pallomir/waveforms/spikes_on_view.h"

namespace pallomir {

void SpikesOnView::Clear() {
  spikes_.clear();
  drawn_ = missing_ = 0;
  picture_.Clear();
}

void SpikesOnView::DrawAgain(const View& area, double unitsACount) {
  picture_ = WaveformPicture(area);
  unitsACount_ = unitsACount;
  drawn_ = missing_ = 0;
}

bool SpikesOnView::DrawNext(WaveformFile& file) {
  WaveformRecord record;
  const ShownSpike& spike = spikes_[drawn_];
  const bool stored = file.Read(spike.Record, record);
  if (stored) picture_.Draw(record, spike.Cluster, unitsACount_);
  ++drawn_;
  if (!stored) ++missing_;
  return stored;
}

}  // namespace pallomir
