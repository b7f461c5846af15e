#pragma once

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "pallomir/projection/density.h"
#include "pallomir/projection/raster.h"
#include "pallomir/projection/uniform_numbers.h"
#include "pallomir/session/session.h"

namespace pallomir {

/// The settings of a redraw that come from the form, not from the session.
struct DrawSettings {
  /// A point is drawn if this is above a new uniform random number; empty for all points.
  std::optional<float> DownsampleFraction;
  /// Closed ranges of slot 8; points outside of them are not drawn. Empty for no restriction.
  std::optional<std::vector<std::pair<float, float>>> RecordRanges;
};

/// The colour code of cluster c in a raster.
constexpr int ColourCode(int c) {
  return c + 1;
}

/// Radius of a point in device pixels on a surface `width` device pixels wide: 0 (a single pixel) for sizes below 1.
double PointRadius(float pointSize, int width);

/// Draws loaded points begin..end-1 in the session's projection, each in the colour of one of its clusters, chosen at
/// random if it is in several. Returns the number of points on the surface. 1.5 ns per point (pixels, one cluster).
size_t DrawPoints(const Session& session, const View& view, const DrawSettings& settings, size_t begin, size_t end,
                  UniformNumbers& random, Raster& raster);

/// The same for any two parameters and their view.
size_t DrawPoints(const Session& session, ParameterPair pair, const View& view, const DrawSettings& settings,
                  size_t begin, size_t end, UniformNumbers& random, Raster& raster);

/// Counts the same choice of points into a density raster, whose loose code is ColourCode(0).
size_t DrawDensity(const Session& session, ParameterPair pair, const View& view, const DrawSettings& settings,
                   size_t begin, size_t end, UniformNumbers& random, DensityRaster& raster);

}  // namespace pallomir
