#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "pallomir/projection/view.h"

namespace pallomir {

/// A picture in memory, one 0xAARRGGBB number a pixel.
struct Canvas {
  uint32_t* Pixels;
  int Width;
  int Height;
  std::ptrdiff_t Stride;  ///< from a pixel to the one below
};

/// A straight line in device pixels; the centre of the first pixel is at (0.5, 0.5).
struct Segment {
  double X0, Y0, X1, Y1;
};

/// The line between two vertices as a view shows it.
Segment SegmentOf(const View& view, Vertex from, Vertex to);

/// The part of a line that comes within `margin` of a surface; nothing where it does not, or is not a number.
std::optional<Segment> Clipped(const Segment& line, int width, int height, double margin);

/// `over` laid on `under` with `share` 256ths.
uint32_t Mixed(uint32_t under, uint32_t over, uint32_t share);

/// Draws a smooth line `width` pixels wide. What it costs goes by the part on view, where the toolkit's painter takes
/// some 500 times as long for a star of 51 corners.
void Stroke(const Canvas& canvas, const Segment& line, double width, uint32_t colour);

/// Draws the edges between vertices, and the closing one.
void StrokePolygon(const Canvas& canvas, const View& view, std::span<const Vertex> vertices, bool closed, double width,
                   uint32_t colour);

}  // namespace pallomir
