#include "pallomir/projection/counted_part.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace pallomir {

namespace {

/// Between the black and the white background: visible on both, with points and lines showing through.
constexpr uint32_t kShade = 0xFF7F8FBF;
constexpr uint32_t kShadeShare = 96;

/// The angle from one edge to the next, in (-pi, pi]; 0 if it is within the precision of the coordinates.
double Turn(const XY<double>& before, const XY<double>& after) {
  const double left = before.X * after.Y, right = before.Y * after.X;
  const double along = before.X * after.X + before.Y * after.Y;
  const bool straight = std::abs(left - right) <= 1e-6 * (std::abs(left) + std::abs(right));
  return std::atan2(straight ? 0 : left - right, along);
}

/// For each edge of nonzero length, the angle between it and the previous such edge, with the index of the corner
/// between them.
std::vector<std::pair<int, double>> TurnsOf(const Boundary& boundary, std::vector<int>& repeated) {
  std::vector<int> corners, still;
  std::vector<XY<double>> steps;
  for (int k = 0; k < boundary.VertexCount; ++k) {
    const int next = (k + 1) % boundary.VertexCount;
    const Vertex &from = boundary.Vertices[k], &to = boundary.Vertices[next];
    if (from == to) {
      if (!steps.empty()) still.push_back(next);
      continue;
    }
    repeated.insert(repeated.end(), still.begin(), still.end());
    still.clear();
    corners.push_back(k);
    steps.push_back({double{to.X} - from.X, double{to.Y} - from.Y});
  }
  std::vector<std::pair<int, double>> turns;
  for (size_t k = 0; k < steps.size(); ++k)
    turns.emplace_back(corners[k], Turn(steps[(k + steps.size() - 1) % steps.size()], steps[k]));
  return turns;
}

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// The values from Low to High; empty if Low > High.
struct Span {
  double Low = -kInfinity;
  double High = kInfinity;
};
using Spans = std::vector<Span>;

/// The parts of a row that one run of compared edges accepts: where all edges see a point on one side, or all on the
/// other.
struct Sides {
  Span One, Other;
  bool AnyCut = false;

  void Cut(double at, bool rising) {
    AnyCut = true;
    Span &after = rising ? One : Other, &before = rising ? Other : One;
    after.Low = std::max(after.Low, at);
    before.High = std::min(before.High, at);
  }
};

void KeepWithin(const Sides& sides, Spans& spans) {
  // Between two corners in the same place there is no edge to cut the row; both sides are the whole of it.
  if (!sides.AnyCut) return;
  Spans kept;
  for (const Span& span : spans)
    for (const Span& side : {sides.One, sides.Other}) {
      const Span both{std::max(span.Low, side.Low), std::min(span.High, side.High)};
      if (both.Low <= both.High) kept.push_back(both);
    }
  spans = std::move(kept);
}

/// The parts of the row at height y that the inside test accepts, except for single points on an edge's line: an edge
/// cuts the row in two; an edge whose line contains the whole row ends the comparison with its neighbours.
void AcceptedAt(double y, const Boundary& boundary, Spans& spans) {
  spans.assign(1, {});
  Sides sides;
  for (int k = 0; k < boundary.VertexCount; ++k) {
    const Vertex &from = boundary.Vertices[k], &to = boundary.Vertices[(k + 1) % boundary.VertexCount];
    const double dx = double{to.X} - from.X, dy = double{to.Y} - from.Y, above = y - from.Y;
    if (dy != 0) {
      sides.Cut(from.X + dx * above / dy, dy > 0);
    } else if (dx * above != 0) {
      sides.Cut(dx * above < 0 ? -kInfinity : kInfinity, true);
    } else {
      KeepWithin(sides, spans);
      sides = {};
    }
  }
  KeepWithin(sides, spans);
}

}  // namespace

PolygonFaults FaultsOf(const Boundary& boundary) {
  PolygonFaults faults;
  if (boundary.VertexCount < 3) return faults;
  const auto turns = TurnsOf(boundary, faults.Repeated);
  double round = 0;
  for (const auto& [corner, turn] : turns) round += turn;
  // The two halves of a figure of eight cancel out: use the direction of its first corner.
  if (std::abs(round) < 1 && !turns.empty()) round = turns.front().second;
  for (const auto& [corner, turn] : turns)
    if (turn * round < 0 || std::abs(turn) > std::numbers::pi - 1e-6) faults.Inward.push_back(corner);
  faults.Crossing = std::abs(round) > 3 * std::numbers::pi;
  return faults;
}

std::string PolygonFaults::Sentence() const {
  const auto marked = [](const std::vector<int>& corners, const char* one, const char* several) {
    return corners.size() == 1 ? std::string("the marked corner ") + one : std::string("the marked corners ") + several;
  };
  if (!Any()) return {};
  const std::string shaded = "Only the shaded part counts: ";
  if (!Repeated.empty()) return shaded + marked(Repeated, "was clicked twice.", "were clicked twice.");
  if (!Inward.empty()) return shaded + marked(Inward, "makes the polygon concave.", "make the polygon concave.");
  return shaded + "the polygon crosses itself.";
}

void ShadeCountedPart(const Canvas& canvas, const View& view, const Boundary& boundary) {
  Spans spans;
  for (int row = 0; row < canvas.Height; ++row) {
    AcceptedAt(view.ValueY(row), boundary, spans);
    uint32_t* pixels = canvas.Pixels + row * canvas.Stride;
    for (const Span& span : spans) {
      const auto [low, high] = std::minmax({view.PixelX(span.Low), view.PixelX(span.High)});
      const int begin = static_cast<int>(std::ceil(std::min<double>(std::max<double>(0, low), canvas.Width)));
      const int end = static_cast<int>(std::floor(std::min<double>(std::max<double>(-1, high), canvas.Width - 1))) + 1;
      for (int k = begin; k < end; ++k) pixels[k] = Mixed(pixels[k], kShade, kShadeShare);
    }
  }
}

}  // namespace pallomir
