#include "pallomir/clusters/keep_inside.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <set>

#include "support/sessions.h"

namespace pallomir {
namespace {

/// The rule, literally: a point is rejected once it lies strictly on opposite sides of two consecutive edges.
bool InsideByTheRule(const Vertex& p, const Boundary& boundary) {
  double before = 0;
  const int n = boundary.VertexCount;
  for (int k = 0; k < n; ++k) {
    const Vertex a = boundary.Vertices[k], b = boundary.Vertices[(k + 1) % n];
    const double cross = (double(p.X) - double(a.X)) * (double(b.Y) - double(a.Y)) -
                         (double(b.X) - double(a.X)) * (double(p.Y) - double(a.Y));
    if ((cross < 0 && before > 0) || (cross > 0 && before < 0)) return false;
    before = cross;
  }
  return true;
}

TEST(PointInBoundary, EdgesAndVerticesAreInsideInEitherDirection) {
  std::vector<Vertex> square = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
  for (int direction = 0; direction < 2; ++direction, std::reverse(square.begin(), square.end())) {
    const Boundary boundary = PolygonOf(square);
    for (const Vertex& p : {Vertex{5, 5}, {0, 0}, {10, 10}, {10, 0}, {0, 10}, {5, 0}, {10, 7}, {3, 10}, {0, 0.1F}})
      EXPECT_EQ(PointInBoundary(p.X, p.Y, boundary), 1) << p.X << ", " << p.Y;
    for (const Vertex& p : {Vertex{-1, 5}, {11, 5}, {5, -1}, {5, 11}, {10.00001F, 5}, {-1e-30F, 5}, {11, 11}, {-3, 12}})
      EXPECT_EQ(PointInBoundary(p.X, p.Y, boundary), 0) << p.X << ", " << p.Y;
  }
}

TEST(PointInBoundary, AConcaveShapeHoldsThePointsOnOneSideOfAllEdgesAndAShapeWithoutEdgesHoldsAll) {
  const Boundary ell = PolygonOf({{0, 0}, {2, 0}, {2, 1}, {1, 1}, {1, 2}, {0, 2}});
  EXPECT_EQ(PointInBoundary(0.5F, 0.5F, ell), 1);
  EXPECT_EQ(PointInBoundary(0.5F, 1.5F, ell), 0);
  EXPECT_EQ(PointInBoundary(2, 2, ell), 1);  // outside, but on the lines of two edges, which never reject
  EXPECT_EQ(PointInBoundary(1.5F, 1.5F, ell), 0);
  EXPECT_EQ(PointInBoundary(1e30F, -7, PolygonOf({})), 1);
  EXPECT_EQ(PointInBoundary(1e30F, -7, PolygonOf({{3, 3}})), 1);
}

TEST(PointInBoundary, ConvexBoundariesHoldExactlyThePointsInsideThem) {
  std::mt19937 random(11);
  std::uniform_real_distribution<float> anywhere(-1.2F, 1.2F);
  for (int polygon = 0; polygon < 1000; ++polygon) {
    std::set<double> angles;  // no repeated corner: every point lies on the line of an edge without length
    for (const size_t count = 3 + random() % 49; angles.size() < count;)
      angles.insert(0.001 * static_cast<double>(random() % 6283));
    std::vector<Vertex> corners;
    for (const double a : angles) corners.push_back({static_cast<float>(std::cos(a)), static_cast<float>(std::sin(a))});
    // A point is inside if it lies to the left of every edge of a polygon drawn anticlockwise.
    const auto leastSide = [&](const Vertex& p) {
      double least = 1;
      for (size_t k = 0; k < corners.size(); ++k) {
        const Vertex a = corners[k], b = corners[(k + 1) % corners.size()];
        least = std::min(least, (double{b.X} - a.X) * (double{p.Y} - a.Y) - (double{b.Y} - a.Y) * (double{p.X} - a.X));
      }
      return least;
    };
    const Boundary boundary = PolygonOf(corners);
    const Boundary turned = PolygonOf({corners.rbegin(), corners.rend()});
    for (int k = 0; k < 100; ++k) {
      const Vertex p = {anywhere(random), anywhere(random)};
      const double least = leastSide(p);
      if (std::abs(least) < 1e-6) continue;  // too near to an edge, as the corners are rounded
      ASSERT_EQ(PointInBoundary(p.X, p.Y, boundary), least > 0)
          << "polygon " << polygon << " at " << p.X << ", " << p.Y;
      ASSERT_EQ(PointInBoundary(p.X, p.Y, turned), least > 0) << "polygon " << polygon << " turned";
    }
  }
}

TEST(KeepInside, AgreesWithTheRulePointByPoint) {
  constexpr float inf = std::numeric_limits<float>::infinity();
  const std::vector<float> odd = {0,   -0.0F, 1,   -1,     3e38F, -3e38F,   1e-45F, -1e-45F,
                                  inf, -inf,  NAN, 1e-30F, 7,     16777216, 1e10F,  1e-20F};
  std::mt19937 random(5);
  std::normal_distribution<float> normal(0, 10);
  // With small whole numbers many points lie on edges and vertices; extreme values test the limits of the arithmetic.
  const auto coordinate = [&](int kind) {
    if (kind == 0) return static_cast<float>(random() % 5);
    return kind == 1 ? normal(random) : odd[random() % odd.size()];
  };
  const size_t lengths[] = {0, 1, 2, 3, 7, 8, 255, 256, 257, 511, 512, 1000};
  for (int polygon = 0; polygon < 3000; ++polygon) {
    const int kind = polygon % 3;
    Boundary boundary;
    boundary.VertexCount = static_cast<int16_t>(polygon % 10 ? random() % 9 : random() % 52);
    for (Vertex& vertex : boundary.Vertices) vertex = {coordinate(kind), coordinate(kind)};
    const size_t count = lengths[random() % std::size(lengths)];
    std::vector<float> x(count), y(count);
    std::vector<uint8_t> inside(count), before(count);
    for (size_t i = 0; i < count; ++i) {
      x[i] = coordinate(kind), y[i] = coordinate(kind);
      inside[i] = before[i] = random() % 4 != 0;
    }
    KeepInside(boundary, x.data(), y.data(), count, inside.data());
    int wrong = 0;
    for (size_t i = 0; i < count; ++i) {
      const bool rule = InsideByTheRule({x[i], y[i]}, boundary);
      wrong += inside[i] != (before[i] && rule);
      wrong += PointInBoundary(x[i], y[i], boundary) != rule;
    }
    EXPECT_EQ(wrong, 0) << "polygon " << polygon << " of " << boundary.VertexCount << " vertices, " << count
                        << " points";
  }
}

}  // namespace
}  // namespace pallomir
