#include "pallomir/analyses/cluster_reports.h"

#include "pallomir/analyses/commands.h"
#include "pallomir/files/error.h"
#include "pallomir/output/assignment.h"
#include "pallomir/session/part_of_work.h"
#include "pallomir/session/work_pace.h"

namespace pallomir {

namespace {

/// Hides the progress, however the work ends.
struct ProgressOfAll {
  World& Whole;
  ~ProgressOfAll() { Whole.HideProgress(); }
};

}  // namespace

std::vector<int> DefinedClusters(const Session& session) {
  std::vector<int> clusters;
  for (int c = 1; c < kClusterSlots; ++c)
    if (session.ClusterDefined[c]) clusters.push_back(c);
  return clusters;
}

void RequireDefinedClusters(const Session& session) {
  if (!PointsLoaded(session)) throw CommandError(ErrorKind::NotReady, "Need to Load Points first");
  if (DefinedClusters(session).empty())
    throw CommandError(ErrorKind::NotReady, "No cluster has a boundary yet: there is nothing to report.");
}

void MakeReports(const Session& session, World& world, const ClusterFileTexts& texts, const std::string& positionName,
                 const std::vector<int>& clusters, const std::filesystem::path& folder,
                 const std::function<void(int c, const Report& report, World& part)>& use) {
  const ReportFiles files = ReportFilesOf(session, positionName, folder / "spikes", folder / "times");
  const ProgressOfAll hidden{world};
  WorkPace pace(world);
  const Assignment assigned = AssignClusters(session.Points, static_cast<Progress>(pace).Part(0, 0));
  for (size_t i = 0; i < clusters.size(); ++i) {
    const double begin = static_cast<double>(i) / static_cast<double>(clusters.size());
    pace.Reached(begin);
    PartOfWork part(world, begin, begin + 1 / static_cast<double>(clusters.size()));
    WriteSpikesOf(session, part, texts, assigned.Cluster, clusters[i], {files.ClusterFile, files.TimeFile});
    use(clusters[i], MakeReport(part, files, clusters[i], session.DataDirectory), part);
  }
}

}  // namespace pallomir
