#include "pallomir/projection/stroke.h"

#include <algorithm>
#include <cmath>

namespace pallomir {

namespace {

/// A line along its longer axis, from X0 to X1, on a canvas that may be transposed.
struct Course {
  Segment Line;
  int Length, Breadth;           ///< of the canvas, along and across the line
  std::ptrdiff_t Along, Across;  ///< offset between neighbouring pixels
};

Course CourseOf(const Canvas& canvas, Segment line) {
  Course course{line, canvas.Width, canvas.Height, 1, canvas.Stride};
  if (std::abs(line.X1 - line.X0) < std::abs(line.Y1 - line.Y0))
    course = {{line.Y0, line.X0, line.Y1, line.X1}, canvas.Height, canvas.Width, canvas.Stride, 1};
  if (course.Line.X0 > course.Line.X1) {
    std::swap(course.Line.X0, course.Line.X1);
    std::swap(course.Line.Y0, course.Line.Y1);
  }
  return course;
}

/// The share of pixel i between two bounds.
double Covered(int i, double low, double high) {
  return std::min<double>(i + 1, high) - std::max<double>(i, low);
}

/// Square ends fill the corner between two edges.
Segment Lengthened(const Segment& line, double by) {
  const double dx = line.X1 - line.X0, dy = line.Y1 - line.Y0, length = std::hypot(dx, dy);
  const double x = length > 0 ? dx / length * by : by, y = length > 0 ? dy / length * by : 0;
  return {line.X0 - x, line.Y0 - y, line.X1 + x, line.Y1 + y};
}

}  // namespace

Segment SegmentOf(const View& view, Vertex from, Vertex to) {
  return {view.PixelX(from.X) + 0.5, view.PixelY(from.Y) + 0.5, view.PixelX(to.X) + 0.5, view.PixelY(to.Y) + 0.5};
}

std::optional<Segment> Clipped(const Segment& line, int width, int height, double margin) {
  const double dx = line.X1 - line.X0, dy = line.Y1 - line.Y0;
  const double left = -margin, right = width + margin, top = -margin, bottom = height + margin;
  if (!std::isfinite(dx) || !std::isfinite(dy)) return {};
  // Liang and Barsky (1984): the range of line parameters in which the line is inside all borders.
  double from = 0, to = 1;
  const auto cut = [&](double step, double room) {
    if (step < 0) from = std::max(from, room / step);
    if (step > 0) to = std::min(to, room / step);
    return step != 0 || room >= 0;
  };
  const bool near = cut(-dx, line.X0 - left) && cut(dx, right - line.X0) && cut(-dy, line.Y0 - top) &&
                    cut(dy, bottom - line.Y0) && from <= to;
  if (!near) return {};
  // An end a million surfaces away has no precision left: clamp to the border.
  const auto x = [&](double t) { return std::clamp(line.X0 + t * dx, left, right); };
  const auto y = [&](double t) { return std::clamp(line.Y0 + t * dy, top, bottom); };
  return Segment{from > 0 ? x(from) : line.X0, from > 0 ? y(from) : line.Y0,  //
                 to < 1 ? x(to) : line.X1, to < 1 ? y(to) : line.Y1};
}

uint32_t Mixed(uint32_t under, uint32_t over, uint32_t share) {
  constexpr uint32_t kPair = 0x00FF00FF;
  const uint32_t rest = 256 - share;
  const uint32_t low = ((under & kPair) * rest + (over & kPair) * share) >> 8U & kPair;
  const uint32_t high = ((under >> 8U & kPair) * rest + (over >> 8U & kPair) * share) & ~kPair;
  return low | high;
}

void Stroke(const Canvas& canvas, const Segment& line, double width, uint32_t colour) {
  const auto part = Clipped(line, canvas.Width, canvas.Height, 2 * width);
  if (!part) return;
  const auto [on, length, breadth, along, across] = CourseOf(canvas, Lengthened(*part, width / 2));
  const double slope = (on.Y1 - on.Y0) / (on.X1 - on.X0);
  const double half = width / 2 * std::hypot(1, slope);
  const int first = std::max(0, static_cast<int>(std::floor(on.X0)));
  const int last = std::min(length - 1, static_cast<int>(std::floor(on.X1)));
  // In units of 2^-24 pixels: the loop needs no rounding call and few conversions.
  constexpr int kBits = 24;
  const auto fine = [](double pixels) { return static_cast<int64_t>(pixels * (1 << kBits)); };
  int64_t low = fine(on.Y0 + (first + 0.5 - on.X0) * slope - half);
  const int64_t step = fine(slope), thickness = fine(2 * half);
  for (int i = first; i <= last; ++i, low += step) {
    const int64_t high = low + thickness;
    const bool end = i == first || i == last;
    const auto within = end ? static_cast<uint32_t>(256 * Covered(i, on.X0, on.X1)) : 256U;
    const auto limit = std::min<int64_t>(breadth - 1, high >> kBits);
    for (int64_t k = std::max<int64_t>(0, low >> kBits); k <= limit; ++k) {
      const int64_t covered = std::min((k + 1) << kBits, high) - std::max(k << kBits, low);
      uint32_t& pixel = canvas.Pixels[i * along + k * across];
      pixel = Mixed(pixel, colour, static_cast<uint32_t>(covered >> (kBits - 8)) * within >> 8U);
    }
  }
}

void StrokePolygon(const Canvas& canvas, const View& view, std::span<const Vertex> vertices, bool closed, double width,
                   uint32_t colour) {
  for (size_t k = 1; k < vertices.size(); ++k)
    Stroke(canvas, SegmentOf(view, vertices[k - 1], vertices[k]), width, colour);
  if (closed && vertices.size() > 1) Stroke(canvas, SegmentOf(view, vertices.back(), vertices.front()), width, colour);
}

}  // namespace pallomir
