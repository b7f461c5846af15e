#include "projection/counted_part.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "clusters/inside_test.h"

namespace pallomir {

namespace {

/// Between the black and the white background: seen on either, and points and lines show through.
constexpr uint32_t kShade = 0xFF7F8FBF;
constexpr uint32_t kShadeShare = 96;

struct Step {
  double X, Y;
};

/// The turn from one edge to the next, in (-pi, pi]; 0 where the coordinates' precision cannot tell it from none.
double Turn(const Step& before, const Step& after) {
  const double left = before.X * after.Y, right = before.Y * after.X;
  const double along = before.X * after.X + before.Y * after.Y;
  const bool straight = std::abs(left - right) <= 1e-6 * (std::abs(left) + std::abs(right));
  return std::atan2(straight ? 0 : left - right, along);
}

/// Where an edge has any length, the turn between it and the one before it that has; by the corner between the two.
std::vector<std::pair<int, double>> TurnsOf(const Boundary& boundary, std::vector<int>& repeated) {
  std::vector<int> corners, still;
  std::vector<Step> steps;
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

}  // namespace

PolygonFaults FaultsOf(const Boundary& boundary) {
  PolygonFaults faults;
  if (boundary.VertexCount < 3) return faults;
  const auto turns = TurnsOf(boundary, faults.Repeated);
  double round = 0;
  for (const auto& [corner, turn] : turns) round += turn;
  // Halves of a figure of eight turn either way: it is its first corner's direction then.
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
  const std::string shaded = "Only what is shaded counts: ";
  if (!Repeated.empty()) return shaded + marked(Repeated, "was clicked twice.", "were clicked twice.");
  if (!Inward.empty()) return shaded + marked(Inward, "makes the polygon concave.", "make the polygon concave.");
  return shaded + "the polygon crosses itself.";
}

void ShadeCountedPart(const Canvas& canvas, const View& view, const Boundary& boundary, int cell) {
  const int columns = (canvas.Width + cell - 1) / cell;
  const double middle = (cell - 1) / 2.0;
  std::vector<float> x(static_cast<size_t>(columns)), y(x.size());
  std::vector<uint8_t> inside(x.size());
  for (int k = 0; k < columns; ++k) x[k] = static_cast<float>(view.ValueX(k * cell + middle));
  for (int top = 0; top < canvas.Height; top += cell) {
    std::fill(y.begin(), y.end(), static_cast<float>(view.ValueY(top + middle)));
    std::fill(inside.begin(), inside.end(), uint8_t{1});
    KeepInside(boundary, x.data(), y.data(), x.size(), inside.data());
    for (int row = top; row < std::min(top + cell, canvas.Height); ++row) {
      uint32_t* pixels = canvas.Pixels + row * canvas.Stride;
      for (int k = 0; k < canvas.Width; ++k)
        if (inside[k / cell]) pixels[k] = Mixed(pixels[k], kShade, kShadeShare);
    }
  }
}

}  // namespace pallomir
