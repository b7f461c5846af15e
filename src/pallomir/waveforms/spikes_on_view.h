#pragma once

#include <cstddef>
#include <vector>

#include "pallomir/recorded/waveform_file.h"
#include "pallomir/waveforms/spike_stepping.h"
#include "pallomir/waveforms/waveform_picture.h"

namespace pallomir {

/// The spikes that the viewer draws over each other, and their image. They are drawn one at a time, in the order in
/// which they were added, so that drawing can stop, continue or restart between any two.
class SpikesOnView {
 public:
  explicit SpikesOnView(const View& area) : picture_(area) {}

  const WaveformPicture& Picture() const { return picture_; }
  /// The number of spikes still to be drawn, and of all.
  size_t Waiting() const { return spikes_.size() - drawn_; }
  size_t Count() const { return spikes_.size(); }
  /// The number of drawn spikes that have a waveform.
  size_t Stored() const { return drawn_ - missing_; }

  void Clear();
  void Add(const ShownSpike& spike) { spikes_.push_back(spike); }

  /// Restarts drawing with all spikes, at `unitsACount` units per count (see WaveformPicture::Draw).
  void DrawAgain(const View& area, double unitsACount);

  /// Draws the next spike. Draws nothing and returns false if the file has no waveform for it.
  bool DrawNext(WaveformFile& file);

 private:
  std::vector<ShownSpike> spikes_;
  size_t drawn_ = 0;    ///< number of spikes drawn
  size_t missing_ = 0;  ///< of these, without a waveform in the file
  double unitsACount_ = 1;
  WaveformPicture picture_;
};

}  // namespace pallomir
