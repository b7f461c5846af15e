#include "gui/viewers/point_layer.h"

#include "gui/viewers/picture.h"

namespace pallomir {

PointLayer::PointLayer(QSize size, float pointSize, int pixel, Looks looks)
    : points_(size.width(), size.height(), PointRadius(pointSize, size.width()), pixel) {
  if (looks == Looks::Density) density_.emplace(size.width(), size.height(), pixel, ColourCode(0));
}

size_t PointLayer::Draw(const Session& session, ParameterPair pair, const View& view, const DrawSettings& settings,
                        size_t begin, size_t end, UniformNumbers& random) {
  return density_ ? DrawDensity(session, pair, view, settings, begin, end, random, *density_)
                  : DrawPoints(session, pair, view, settings, begin, end, random, points_);
}

QImage PointLayer::Over(const QImage& ground, const Session& session) const {
  return density_ ? WithDensity(ground, *density_, session) : WithPoints(ground, points_, session);
}

}  // namespace pallomir
