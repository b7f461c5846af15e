#include <string_view>

#include "fuzz/fuzz_target.h"
#include "pallomir/clusters/boundaries_file.h"
#include "pallomir/clusters/classify.h"
#include "pallomir/clusters/undo.h"
#include "support/recording_world.h"
#include "support/refusal.h"
#include "support/sessions.h"

namespace pallomir {

namespace {

void RequireWhole(const Session& session) {
  for (int c = 0; c <= kClusters; ++c) {
    const Cluster& cluster = session.Clusters[c];
    REQUIRE(cluster.BoundaryCount >= 0 && cluster.BoundaryCount <= kBoundariesPerCluster);
    REQUIRE(c == 0 || session.ClusterDefined[c] == (cluster.BoundaryCount > 0));
    for (const Boundary& boundary : cluster.Boundaries) {
      REQUIRE(boundary.VertexCount >= 0 && boundary.VertexCount <= kVerticesPerBoundary);
      REQUIRE(boundary.XParameter >= 0 && boundary.XParameter <= kParameters);
      REQUIRE(boundary.YParameter >= 0 && boundary.YParameter <= kParameters);
    }
  }
}

}  // namespace

/// A boundaries file, read whole and by two chosen clusters. Whatever happens, the session stays consistent, Undo
/// restores the cut, and a file that was read whole is written and read back.
FUZZ_TARGET(FuzzBoundariesFile) {
  static const TemporaryFolder folder;
  static const std::string path = folder / "fuzzed.txt", copy = folder / "copy.txt";
  folder.Put("fuzzed.txt", std::string_view(reinterpret_cast<const char*>(data), size));
  Session session = SessionWith({{10, 10}, {20, 20}, {30, 30}});
  session.DataDirectory = folder / ".";
  AddBoundary(session, 2, RectangleOf(5, 5, 25, 25));
  session.ClusterDefined[2] = true;
  session.DefinitionCounter = 1;
  ClassifyAllClusters(session);
  const BoundaryTable before = session.Clusters;

  ByCluster<bool> chosen{};
  chosen[1] = chosen[2] = true;
  SaveUndoSnapshot(session);
  Refusal([&] { ReadSelectedClusters(session, path, chosen); });
  RequireWhole(session);
  UndoLastChange(session);
  REQUIRE(session.Clusters == before && PointsInCluster(session, 2) == 2);

  SaveUndoSnapshot(session);
  const std::string refusal = Refusal([&] { ReadCBFile(session, path); });
  RequireWhole(session);
  if (refusal.empty()) {
    RecordingWorld world;
    Session again = SessionWith({{10, 10}});
    WriteCBFile(session, world, copy);
    REQUIRE(Refusal([&] { ReadCBFile(again, copy); }).empty());
    REQUIRE(again.ClusterDefined == session.ClusterDefined);
    REQUIRE(again.Clusters[1].BoundaryCount == session.Clusters[1].BoundaryCount);
    REQUIRE(again.ParameterNames == session.ParameterNames);
  }
  UndoLastChange(session);
  REQUIRE(session.Clusters == before && PointsInCluster(session, 2) == 2);
  return 0;
}

}  // namespace pallomir
