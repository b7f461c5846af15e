#include "pallomir/waveforms/waveform_view.h"

#include <algorithm>

namespace pallomir {

View WholeWaveformView(int width, int height) {
  constexpr double left = -5, top = 200, across = 80, down = 7400;
  return {.Left = left, .Right = left + across, .Top = top, .Bottom = top - down, .Width = width, .Height = height};
}

View ZoomedWaveformView(const View& view, Vertex corner, Vertex opposite) {
  constexpr double narrowest = 0.1, lowest = 1;
  const auto [left, right] = std::minmax(corner.X, opposite.X);
  const auto [bottom, top] = std::minmax(corner.Y, opposite.Y);
  if (!(right - left >= narrowest) || !(top - bottom >= lowest)) return view;
  const View zoomed{left, right, top, bottom, view.Width, view.Height};
  return zoomed.Drawable() ? zoomed : view;
}

}  // namespace pallomir
