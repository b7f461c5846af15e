#include "pallomir/clusters/overlap.h"

#include "pallomir/clusters/classify.h"
#include "pallomir/files/error.h"
#include "pallomir/files/number_text.h"

namespace pallomir {

OverlapPoints PointsInSeveralClusters(const Session& session) {
  OverlapPoints overlap;
  const PointTable& points = session.Points;
  if (points.SlotsInUse() > 1) {
    const auto second = points.Slot(1);
    const auto x = points.Column(session.XParameter), y = points.Column(session.YParameter);
    for (size_t i = 0; i < points.Rows(); ++i) {
      if (second[i] == 0) continue;
      overlap.X.push_back(x[i]);
      overlap.Y.push_back(y[i]);
    }
  }
  if (overlap.X.empty()) throw CommandError(ErrorKind::NotReady, "There are no overlapping clusters");
  return overlap;
}

std::vector<std::string> ClusterInfo(const Session& session) {
  const int c = session.CurrentCluster;
  const Cluster& cluster = session.Clusters[c];
  const std::string name = "Cluster " + std::to_string(c);
  std::vector<std::string> lines;
  for (int b = 0; b < cluster.BoundaryCount; ++b) {
    const Boundary& boundary = cluster.Boundaries[b];
    lines.push_back(name + ": " + session.ParameterNames[boundary.XParameter] + " against " +
                    session.ParameterNames[boundary.YParameter] + ", " + std::to_string(boundary.VertexCount) +
                    " vertices");
  }
  lines.push_back(name + ": " + Grouped(PointsInCluster(session, c)) + " points");
  return lines;
}

}  // namespace pallomir
