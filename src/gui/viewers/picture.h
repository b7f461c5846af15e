#pragma once

#include <QColor>
#include <QImage>
#include <functional>
#include <optional>
#include <span>

class QPainter;

#include "pallomir/projection/density.h"
#include "pallomir/projection/raster.h"
#include "pallomir/projection/stroke.h"
#include "pallomir/projection/view.h"
#include "pallomir/session/session.h"
#include "pallomir/waveforms/trace_raster.h"

namespace pallomir {

/// The pixels of an image with four bytes per pixel.
Canvas CanvasOf(QImage& image);

/// The approximate number of ticks for an axis of this length in logical pixels.
int AxisTickCount(double length);

/// The colours behind the points and of the axes.
QColor GroundColour(const Session& session);
QColor InkColour(const Session& session);

/// Draws lines along the left and lower edge of a view of `ratio` device pixels per pixel, with ticks.
void DrawAxes(QPainter& painter, const View& view, double ratio);

/// Calls `stroke` for every line of the boundaries drawn on two parameters, in the order in which they are
/// drawn, with its width in pixels.
using StrokeBoundary = std::function<void(std::span<const Vertex> corners, double width, QColor colour)>;
void ForEachBoundary(const Session& session, ParameterPair pair, const StrokeBoundary& stroke);

struct GroundOptions {
  bool Axes = true;
  bool Boundaries = true;
  /// The parameters; empty for those on view.
  std::optional<ParameterPair> Pair{};
};

/// The layer below the points: the background, the axis lines and the boundaries on these parameters.
QImage MakeGround(const Session& session, const View& view, double pixelRatio, const GroundOptions& options);

/// The ground with the raster's points over it, in the session's colours.
QImage WithPoints(const QImage& ground, const Raster& raster, const Session& session);

/// The ground with the points' density over it, in the session's colours.
QImage WithDensity(const QImage& ground, const DensityRaster& density, const Session& session);

/// The raster's points in one colour, transparent elsewhere.
QImage PointsAlone(const Raster& raster, QColor colour);

/// The traces, with palette[code] for each pixel.
QImage ImageOf(const TraceRaster& traces, std::span<const uint32_t, 256> palette);

}  // namespace pallomir
