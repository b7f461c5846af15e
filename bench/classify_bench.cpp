// Testing which points are inside a cluster's boundaries.

#include <vector>

#include "pallomir/clusters/boundaries_file.h"
#include "pallomir/clusters/classify.h"
#include "pallomir/clusters/keep_inside.h"
#include "pallomir/clusters/live_count.h"
#include "pallomir/session/point_reader.h"
#include "support.h"

namespace pallomir::bench {

namespace {

void SetOnlyBoundary(Session& session, const Boundary& boundary) {
  session.Clusters = {};
  ClassifyAllClusters(session);
  session.Clusters[1].BoundaryCount = 1;
  session.Clusters[1].Boundaries[0] = boundary;
}

void ClassifyOurs(benchmark::State& state) {
  Session& session = LoadedSession();
  SetOnlyBoundary(session, Polygon(5));
  for (auto _ : state) ClassifyCluster(session, 1);
}
BENCHMARK(ClassifyOurs)->Name("classify, 5 corners/ours")->Unit(benchmark::kMillisecond)->MinTime(0.3);

/// One record and one edge at a time, with the records laid out as in the file.
void ClassifyNaive(benchmark::State& state) {
  const Session& session = LoadedSession();
  std::vector<PointRecord> records(static_cast<size_t>(Spikes()));
  for (size_t i = 0; i < records.size(); ++i) records[i] = session.Points.Record(i);
  const Boundary boundary = Polygon(5);
  for (auto _ : state) {
    for (PointRecord& record : records) {
      const bool inside = PointInBoundary(record.Parameters[boundary.XParameter],
                                          record.Parameters[boundary.YParameter], boundary) == 1;
      record.Clusters[0] = inside ? 1 : 0;
    }
    benchmark::ClobberMemory();
  }
}
BENCHMARK(ClassifyNaive)->Name("classify, 5 corners/naive")->Unit(benchmark::kMillisecond)->MinTime(0.3);

/// One pass over the two columns.
void ClassifyFloor(benchmark::State& state) {
  const Session& session = LoadedSession();
  const auto x = session.Points.Column(0), y = session.Points.Column(1);
  for (auto _ : state) {
    float sums[16] = {};
    for (size_t i = 0; i + 16 <= x.size(); i += 16)
      for (size_t lane = 0; lane < 16; ++lane) sums[lane] += x[i + lane] * y[i + lane];
    benchmark::DoNotOptimize(sums);
  }
}
BENCHMARK(ClassifyFloor)->Name("classify, 5 corners/floor")->Unit(benchmark::kMillisecond)->MinTime(0.3);

void ClassifyStar(benchmark::State& state) {
  Session& session = LoadedSession();
  SetOnlyBoundary(session, Polygon(51, true));
  for (auto _ : state) ClassifyCluster(session, 1);
}
BENCHMARK(ClassifyStar)->Name("classify, star of 51/ours")->Unit(benchmark::kMillisecond)->MinTime(0.3);

void ClassifyMany(benchmark::State& state) {
  Session session = OpenSession();
  QuietWorld world;
  ReadPoints(session, world, 0, static_cast<int32_t>(Spikes() - 1));
  for (int c = 1; c <= kClusters; ++c) {
    Cluster& cluster = session.Clusters[c];
    cluster.BoundaryCount = 3;
    for (int b = 0; b < 3; ++b) {
      cluster.Boundaries[b] = Polygon(5);
      cluster.Boundaries[b].YParameter = static_cast<int16_t>(b + 1);
      for (Vertex& vertex : cluster.Boundaries[b].Vertices) vertex.X += static_cast<float>(c);
    }
  }
  for (auto _ : state) ClassifyAllClusters(session);
}
BENCHMARK(ClassifyMany)->Name("classify, 30 clusters of 3/ours")->Unit(benchmark::kMillisecond)->MinTime(0.3);

/// The largest possible boundaries file: 30 clusters of 21 boundaries of 51 corners, on points of four channels.
void ReadFullFile(benchmark::State& state) {
  Session session = OpenSession();
  QuietWorld world;
  ReadPoints(session, world, 0, static_cast<int32_t>(Spikes() - 1));
  for (int c = 1; c <= kClusters; ++c) {
    Cluster& cluster = session.Clusters[c];
    session.ClusterDefined[c] = true;
    cluster.BoundaryCount = kBoundariesPerCluster;
    for (int b = 0; b < kBoundariesPerCluster; ++b) {
      cluster.Boundaries[b] = Polygon(51);
      cluster.Boundaries[b].XParameter = static_cast<int16_t>(b % 4);
      cluster.Boundaries[b].YParameter = static_cast<int16_t>((b + 1) % 4);
      for (Vertex& vertex : cluster.Boundaries[b].Vertices) vertex.X -= 3 * static_cast<float>(c);
    }
  }
  const std::string path = RecordingFolder() + "/full.txt";
  WriteCBFile(session, world, path);
  for (auto _ : state) ReadCBFile(session, path);
}
BENCHMARK(ReadFullFile)
    ->Name("read a full boundaries file and classify/ours")
    ->Unit(benchmark::kMillisecond)
    ->MinTime(0.3);

/// Cluster 1 has a boundary on MPeak-1 and MPeak-2, which is dragged, and one of 5 corners on other parameters.
void SetDraggedBoundary(Session& session, const Boundary& boundary) {
  SetOnlyBoundary(session, boundary);
  session.Clusters[1].BoundaryCount = 2;
  session.Clusters[1].Boundaries[1] = Polygon(5);
  session.Clusters[1].Boundaries[1].YParameter = 2;
}

/// One frame of dragging a corner: the number of points that the cluster would hold.
void DragOurs(benchmark::State& state, int boundaries, int corners, bool star) {
  Session& session = LoadedSession();
  SetDraggedBoundary(session, Polygon(corners, star));
  session.Clusters[1].BoundaryCount = static_cast<int16_t>(boundaries);
  const LiveCount live(session, 1, 0);
  Boundary boundary = session.Clusters[1].Boundaries[0];
  for (auto _ : state) {
    boundary.Vertices[0].X += 0.01F;
    benchmark::DoNotOptimize(live.Count(boundary));
  }
}

void DragOnlyBoundary(benchmark::State& state) {
  DragOurs(state, 1, 5, false);
}
BENCHMARK(DragOnlyBoundary)->Name("count while dragging, 5 corners/ours")->Unit(benchmark::kMillisecond)->MinTime(0.3);

void DragStar(benchmark::State& state) {
  DragOurs(state, 1, 51, true);
}
BENCHMARK(DragStar)->Name("count while dragging, star of 51/ours")->Unit(benchmark::kMillisecond)->MinTime(0.3);

void DragSecondBoundary(benchmark::State& state) {
  DragOurs(state, 2, 5, false);
}
BENCHMARK(DragSecondBoundary)
    ->Name("count while dragging, one of two/ours")
    ->Unit(benchmark::kMillisecond)
    ->MinTime(0.3);

/// Every boundary for every point, one point at a time.
void DragNaive(benchmark::State& state, int boundaries) {
  Session& session = LoadedSession();
  SetDraggedBoundary(session, Polygon(5));
  for (auto _ : state) {
    Cluster& cluster = session.Clusters[1];
    cluster.Boundaries[0].Vertices[0].X += 0.01F;
    int64_t held = 0;
    for (size_t i = 0; i < session.Points.Rows(); ++i) {
      bool inside = true;
      for (int b = 0; b < boundaries && inside; ++b) {
        const Boundary& boundary = cluster.Boundaries[b];
        inside = PointInBoundary(session.Points.Column(boundary.XParameter)[i],
                                 session.Points.Column(boundary.YParameter)[i], boundary) == 1;
      }
      held += inside;
    }
    benchmark::DoNotOptimize(held);
  }
}

void DragNaiveOnly(benchmark::State& state) {
  DragNaive(state, 1);
}
BENCHMARK(DragNaiveOnly)->Name("count while dragging, 5 corners/naive")->Unit(benchmark::kMillisecond)->MinTime(0.3);

void DragNaiveSecond(benchmark::State& state) {
  DragNaive(state, 2);
}
BENCHMARK(DragNaiveSecond)->Name("count while dragging, one of two/naive")->Unit(benchmark::kMillisecond)->MinTime(0.3);

}  // namespace

}  // namespace pallomir::bench
