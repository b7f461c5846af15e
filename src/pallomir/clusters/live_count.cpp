#include "pallomir/clusters/live_count.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "pallomir/clusters/keep_inside.h"

namespace pallomir {

namespace {

constexpr size_t kBlock = 2048;
using Flags = std::array<uint8_t, kBlock>;

}  // namespace

LiveCount::LiveCount(const Session& session, int c, int b)
    : session_(session), narrowed_(session.Clusters[c].BoundaryCount > 1) {
  if (!narrowed_) return;
  const Cluster& cluster = session.Clusters[c];
  const PointTable& points = session.Points;
  const float* x = points.Column(cluster.Boundaries[b].XParameter).data();
  const float* y = points.Column(cluster.Boundaries[b].YParameter).data();
  Flags inside;
  for (size_t begin = 0; begin < points.Rows(); begin += kBlock) {
    const size_t count = std::min(kBlock, points.Rows() - begin);
    inside.fill(1);
    for (int other = 0; other < cluster.BoundaryCount; ++other) {
      if (other == b) continue;
      const Boundary& boundary = cluster.Boundaries[other];
      KeepInside(boundary, points.Column(boundary.XParameter).data() + begin,
                 points.Column(boundary.YParameter).data() + begin, count, inside.data());
    }
    for (size_t i = 0; i < count; ++i) {
      if (!inside[i]) continue;
      x_.push_back(x[begin + i]);
      y_.push_back(y[begin + i]);
    }
  }
}

int64_t LiveCount::Count(const Boundary& boundary) const {
  const PointTable& points = session_.Points;
  const float* x = narrowed_ ? x_.data() : points.Column(boundary.XParameter).data();
  const float* y = narrowed_ ? y_.data() : points.Column(boundary.YParameter).data();
  const size_t all = narrowed_ ? x_.size() : points.Rows();
  int64_t held = 0;
  Flags inside;
  for (size_t begin = 0; begin < all; begin += kBlock) {
    const size_t count = std::min(kBlock, all - begin);
    inside.fill(1);
    KeepInside(boundary, x + begin, y + begin, count, inside.data());
    held += std::accumulate(inside.begin(), inside.begin() + static_cast<std::ptrdiff_t>(count), 0);
  }
  return held;
}

}  // namespace pallomir
