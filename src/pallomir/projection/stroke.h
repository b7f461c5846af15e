#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "pallomir/projection/view.h"

namespace pallomir {

/// An image in memory, one 0xAARRGGBB value per pixel.
struct Canvas {
  uint32_t* Pixels;
  int Width;
  int Height;
  std::ptrdiff_t Stride;  ///< offset from a pixel to the one below, in pixels
};

/// A straight line in device pixels; the centre of the first pixel is at (0.5, 0.5).
struct Segment {
  double X0, Y0, X1, Y1;
};

/// The line between two vertices, in device pixels of a view.
Segment SegmentOf(const View& view, Vertex from, Vertex to);

/// The part of a line within `margin` of a surface; empty if there is none or the line is not finite.
std::optional<Segment> Clipped(const Segment& line, int width, int height, double margin);

/// Blends `over` onto `under` with a weight of `share` / 256.
uint32_t Mixed(uint32_t under, uint32_t over, uint32_t share);

/// Draws an antialiased line `width` pixels wide. The cost depends on the visible part only; the toolkit's painter
/// takes some 500 times as long for a star of 51 corners.
void Stroke(const Canvas& canvas, const Segment& line, double width, uint32_t colour);

/// Draws the edges between the vertices and, if `closed`, the closing edge.
void StrokePolygon(const Canvas& canvas, const View& view, std::span<const Vertex> vertices, bool closed, double width,
                   uint32_t colour);

}  // namespace pallomir
