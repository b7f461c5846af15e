#pragma once

#include <QImage>
#include <span>

#include "projection/raster.h"
#include "projection/view.h"
#include "session/session.h"
#include "waveforms/trace_raster.h"

namespace pallomir {

/// What lies under the points: the background and the boundaries made in the session's projection.
QImage MakeGround(const Session& session, const View& view, double pixelRatio, bool drawBoundaries);

/// The ground with the raster's points over it, in the session's colours.
QImage WithPoints(const QImage& ground, const Raster& raster, const Session& session);

/// The raster's points in one colour, clear elsewhere.
QImage PointsAlone(const Raster& raster, QColor colour);

/// The traces, palette[code] for each pixel's code.
QImage ImageOf(const TraceRaster& traces, std::span<const uint32_t, 256> palette);

/// Draws ticks, numbers and the parameters' names along the left and lower edge.
void DrawAxes(QImage& picture, const Session& session, const View& view);

}  // namespace pallomir
