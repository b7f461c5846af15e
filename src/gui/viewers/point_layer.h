#pragma once

#include <QImage>
#include <optional>

#include "pallomir/projection/draw_points.h"

namespace pallomir {

/// The points of a picture: pixels or discs in the clusters' colours, or their density.
class PointLayer {
 public:
  enum class Looks { Points, Density };
  PointLayer() = default;
  /// `pixel` is the side, in device pixels, of the square drawn for a pixel.
  PointLayer(QSize size, float pointSize, int pixel, Looks looks);

  int Width() const { return points_.Width(); }

  /// Draws loaded points begin..end-1 by two parameters; returns how many are on the surface.
  size_t Draw(const Session& session, ParameterPair pair, const View& view, const DrawSettings& settings, size_t begin,
              size_t end, UniformNumbers& random);

  /// The ground with the points over it, in the session's colours.
  QImage Over(const QImage& ground, const Session& session) const;

 private:
  Raster points_;
  /// In place of the points.
  std::optional<DensityRaster> density_;
};

}  // namespace pallomir
