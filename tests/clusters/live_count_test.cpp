#include "pallomir/clusters/live_count.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "pallomir/clusters/classify.h"
#include "support/sessions.h"

namespace pallomir {
namespace {

TEST(LiveCount, EqualsWhatTheClassificationEnters) {
  std::mt19937 random(7);
  std::uniform_int_distribution<int> coordinate(0, 100);
  const auto any = [&] {
    return Vertex{static_cast<float>(coordinate(random)), static_cast<float>(coordinate(random))};
  };
  std::vector<Vertex> points(5000);
  for (Vertex& point : points) point = any();
  points[17].X = points[4000].Y = NAN;
  for (int round = 0; round < 60; ++round) {
    Session session = SessionWith(points);
    const int boundaries = 1 + round % 3, b = round % boundaries;
    for (int k = 0; k < boundaries; ++k)
      AddBoundary(session, 5, PolygonOf({any(), any(), any(), any()}, k == 1 ? 1 : 0, k == 1 ? 0 : 1));
    const LiveCount live(session, 5, b);
    for (int shape = 0; shape < 5; ++shape) {
      Boundary& mended = session.Clusters[5].Boundaries[b];
      mended.Vertices[shape % 4] = any();
      if (shape == 4) mended.VertexCount = 2;
      ClassifyCluster(session, 5);
      EXPECT_EQ(live.Count(mended), PointsInCluster(session, 5)) << round << ", " << shape;
    }
  }
}

}  // namespace
}  // namespace pallomir
