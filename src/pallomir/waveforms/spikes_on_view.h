#pragma once

#include <cstddef>
#include <vector>

#include "pallomir/recorded/waveform_file.h"
#include "pallomir/waveforms/spike_stepping.h"
#include "pallomir/waveforms/waveform_picture.h"

namespace pallomir {

/// The spikes that the viewer shows over each other, and the picture of them. It is drawn spike by spike, in the order
/// in which they came on view, so that whoever draws may stop, go on or begin afresh between any two.
class SpikesOnView {
 public:
  explicit SpikesOnView(const View& area) : picture_(area) {}

  const WaveformPicture& Picture() const { return picture_; }
  /// Spikes that are waiting to be drawn, and all of them.
  size_t Waiting() const { return spikes_.size() - drawn_; }
  size_t Count() const { return spikes_.size(); }
  /// Of those that were drawn: for how many there is a waveform.
  size_t Stored() const { return drawn_ - missing_; }

  void Clear();
  void Add(const ShownSpike& spike) { spikes_.push_back(spike); }

  /// All are to be drawn again, a count `unitsACount` high (see WaveformPicture::Draw).
  void DrawAgain(const View& area, double unitsACount);

  /// Draws the next one that is waiting. Nothing is drawn of one that the file does not hold; false then.
  bool DrawNext(WaveformFile& file);

 private:
  std::vector<ShownSpike> spikes_;
  size_t drawn_ = 0;    ///< the first that many
  size_t missing_ = 0;  ///< of these: what the file does not hold
  double unitsACount_ = 1;
  WaveformPicture picture_;
};

}  // namespace pallomir
