#pragma once

#include <QImage>
#include <span>

#include "pallomir/projection/raster.h"
#include "pallomir/projection/stroke.h"
#include "pallomir/projection/view.h"
#include "pallomir/session/session.h"
#include "pallomir/waveforms/trace_raster.h"

namespace pallomir {

/// The image's pixels, of four bytes each.
Canvas CanvasOf(QImage& image);

/// About how many marks an axis of so many logical pixels has.
int AxisTickCount(double length);

struct GroundOptions {
  bool Axes = true;
  bool Boundaries = true;
};

/// What lies under the points: the background, the axes' lines, the boundaries made in the session's projection.
QImage MakeGround(const Session& session, const View& view, double pixelRatio, const GroundOptions& options);

/// The ground with the raster's points over it, in the session's colours.
QImage WithPoints(const QImage& ground, const Raster& raster, const Session& session);

/// The raster's points in one colour, clear elsewhere.
QImage PointsAlone(const Raster& raster, QColor colour);

/// The traces, palette[code] for each pixel's code.
QImage ImageOf(const TraceRaster& traces, std::span<const uint32_t, 256> palette);

}  // namespace pallomir
