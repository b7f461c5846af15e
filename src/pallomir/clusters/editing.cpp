#include "pallomir/clusters/editing.h"

#include <algorithm>
#include <cmath>

#include "pallomir/clusters/classify.h"
#include "pallomir/clusters/undo.h"

namespace pallomir {

void DeleteCluster(Session& session, int c, const Progress& progress) {
  ClearCluster(session, c, progress);
  session.ClusterDefined[c] = false;
}

void DeleteAllClusters(Session& session) {
  // The lists contain no other numbers than these clusters'.
  session.Points.ClearMemberships();
  for (int c = 1; c <= kClusters; ++c) DeleteCluster(session, c);
}

CopyOutcome CopyCluster(Session& session, std::optional<double> number, const Progress& progress) {
  if (!number || !(*number > 0 && *number <= kClusters)) return {};
  const int target = static_cast<int>(std::nearbyint(*number));
  if (target == 0) return {};
  SaveUndoSnapshot(session);
  const bool deleted = session.Clusters[target].BoundaryCount > 0;
  if (deleted) DeleteCluster(session, target, progress);
  const Cluster& source = session.Clusters[session.CurrentCluster];
  if (source.BoundaryCount == 0) return {target, deleted, false};
  session.Clusters[target] = source;
  session.ClusterDefined[target] = true;
  ++session.DefinitionCounter;
  ClassifyCluster(session, target, progress);
  return {target, deleted, true};
}

void DeleteCurrentCluster(Session& session, const Progress& progress) {
  SaveUndoSnapshot(session);
  DeleteCluster(session, session.CurrentCluster, progress);
}

void DeleteEveryCluster(Session& session) {
  SaveUndoSnapshot(session);
  DeleteAllClusters(session);
}

void DeleteClusterBounds(Session& session, const Progress& progress) {
  SaveUndoSnapshot(session);
  const int c = session.CurrentCluster;
  Cluster& cluster = session.Clusters[c];
  const auto end = cluster.Boundaries.begin() + cluster.BoundaryCount;
  const auto found = std::find_if(cluster.Boundaries.begin(), end,
                                  [&](const Boundary& boundary) { return OnView(session, boundary); });
  if (found != end) {
    std::move(found + 1, end, found);
    *(end - 1) = {};
    if (--cluster.BoundaryCount == 0) {
      --session.DefinitionCounter;
      session.ClusterDefined[c] = false;
    }
  }
  ClassifyCluster(session, c, progress);
}

}  // namespace pallomir
