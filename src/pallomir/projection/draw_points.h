#pragma once

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "pallomir/projection/raster.h"
#include "pallomir/projection/uniform_numbers.h"
#include "pallomir/session/session.h"

namespace pallomir {

/// What a redraw takes from the form, besides the session.
struct DrawSettings {
  /// A point is drawn when this is above a fresh uniform number; nothing for all points.
  std::optional<float> DownsampleFraction;
  /// Closed ranges of slot 8 outside of which points are not drawn; nothing for no restriction.
  std::optional<std::vector<std::pair<float, float>>> RecordRanges;
};

/// The colour code of cluster c in a raster.
constexpr int ColourCode(int c) {
  return c + 1;
}

/// Radius in device pixels of a point on a surface `width` device pixels wide: 0 (a single pixel) for sizes below 1.
double PointRadius(float pointSize, int width);

/// Draws loaded points begin..end-1 of the session's projection, each in the colour of one of its clusters, chosen at
/// random when it is in several. Returns how many came to lie on the surface. 1.5 ns a point (pixels, one cluster).
size_t DrawPoints(const Session& session, const View& view, const DrawSettings& settings, size_t begin, size_t end,
                  UniformNumbers& random, Raster& raster);

}  // namespace pallomir
