#include "clusters/inside_test.h"

#include <array>

#include "files/platform.h"

namespace pallomir {

namespace {

/// One edge, from (X, Y) by (Dx, Dy).
struct Edge {
  double X, Y, Dx, Dy;
};

using Edges = std::array<Edge, kVerticesPerBoundary>;

/// The edges of a boundary, the closing one last. Single-precision coordinates differ exactly in double precision or
/// are rounded as the one-point test rounds them.
size_t EdgesOf(const Boundary& boundary, Edges& edges) {
  const auto count = static_cast<size_t>(boundary.VertexCount);
  for (size_t k = 0; k < count; ++k) {
    const Vertex& from = boundary.Vertices[k];
    const Vertex& to = boundary.Vertices[k + 1 < count ? k + 1 : 0];
    edges[k] = {from.X, from.Y, double{to.X} - double{from.X}, double{to.Y} - double{from.Y}};
  }
  return count;
}

constexpr size_t kTile = 8;

/// Tests kTile points. Each edge's cross product is multiplied by the one before it; the product is negative exactly
/// when the two are of opposite sign (it cannot underflow: cross products of single-precision input are multiples of
/// 2^-298), so the smallest product tells whether any pair of edges rejects the point. 1.9 ns a point for 5 edges
/// against 12 ns with a branch for each edge.
inline void KeepTile(const Edge* edges, size_t edgeCount, const float* x, const float* y, uint8_t* inside) {
  std::array<double, kTile> previous{}, smallest{};
  for (size_t k = 0; k < edgeCount; ++k) {
    const Edge edge = edges[k];
    for (size_t i = 0; i < kTile; ++i) {
      const double cross = (double{x[i]} - edge.X) * edge.Dy - edge.Dx * (double{y[i]} - edge.Y);
      const double product = cross * previous[i];
      smallest[i] = product < smallest[i] ? product : smallest[i];
      previous[i] = cross;
    }
  }
  for (size_t i = 0; i < kTile; ++i) inside[i] = static_cast<uint8_t>(inside[i] & static_cast<int>(!(smallest[i] < 0)));
}

PALLOMIR_HOT_LOOP
void KeepTiles(const Edge* edges, size_t edgeCount, const float* x, const float* y, size_t count, uint8_t* inside) {
  for (size_t i = 0; i + kTile <= count; i += kTile) KeepTile(edges, edgeCount, x + i, y + i, inside + i);
}

}  // namespace

int16_t PointInBoundary(float x, float y, const Boundary& boundary) {
  Edges edges;
  const size_t count = EdgesOf(boundary, edges);
  double previous = 0;
  for (size_t k = 0; k < count; ++k) {
    const Edge& edge = edges[k];
    const double cross = (double{x} - edge.X) * edge.Dy - edge.Dx * (double{y} - edge.Y);
    if ((cross < 0 && previous > 0) || (cross > 0 && previous < 0)) return 0;
    previous = cross;
  }
  return 1;
}

void KeepInside(const Boundary& boundary, const float* x, const float* y, size_t count, uint8_t* inside) {
  Edges edges;
  const size_t edgeCount = EdgesOf(boundary, edges);
  const size_t whole = count / kTile * kTile;
  KeepTiles(edges.data(), edgeCount, x, y, whole, inside);
  for (size_t i = whole; i < count; ++i) inside[i] &= static_cast<uint8_t>(PointInBoundary(x[i], y[i], boundary));
}

}  // namespace pallomir
