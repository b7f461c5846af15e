#pragma once

#include <array>
#include <cstdint>

#include "pallomir/recorded/waveform_file.h"
#include "pallomir/waveforms/trace_raster.h"
#include "pallomir/waveforms/waveform_view.h"

namespace pallomir {

/// The waveform viewer's image on a surface of device pixels; waveforms are drawn over each other until Clear(). 10,000
/// waveforms of 32 recorded channels take 0.5 s on 900 x 900 pixels, with the toolkit's painter 10 s.
class WaveformPicture {
 public:
  explicit WaveformPicture(const View& view);

  const View& Area() const { return view_; }
  const TraceRaster& Pixels() const { return raster_; }

  void Clear();

  /// Draws the 32 traces of a record in the colour code of `cluster`, at `unitsACount` units per count (negative:
  /// upside down), and the white lines through sample 8, which are above all traces but the last.
  void Draw(const WaveformRecord& record, int cluster, double unitsACount = 1);

 private:
  using Coordinates = std::array<int32_t, kBlockSamples>;
  void DrawBlock(const WaveformRecord& record, int block, uint8_t code, double unitsACount);
  void DrawMarkers();

  View view_;
  TraceRaster raster_;
  std::array<Coordinates, 2> columns_{};  ///< of the samples of even and odd blocks
  std::array<int32_t, 2> markers_{};      ///< columns of the white lines
};

}  // namespace pallomir
