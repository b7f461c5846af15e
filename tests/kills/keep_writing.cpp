// Writes a boundaries file over and over, a small cut and a large one in turn, until it is killed; or tells whether the
// file is one of the two, whole:
//   keep_writing FOLDER          keep_writing FOLDER check

#include <cstdio>
#include <string_view>

#include "clusters/boundaries_file.h"
#include "files/file_reader.h"
#include "support/recording_world.h"
#include "support/sessions.h"

using namespace pallomir;

namespace {

Session CutOf(int clusters, const char* folder) {
  Session session;
  session.DataDirectory = folder;
  for (int c = 1; c <= clusters; ++c) {
    for (int b = 0; b < kBoundariesPerCluster; ++b)
      AddBoundary(session, c, PolygonOf(std::vector<Vertex>(kVerticesPerBoundary, {1.25F, -7})));
    session.ClusterDefined[c] = true;
  }
  return session;
}

/// How many clusters the file brings back, all of them whole; -1 when it is torn.
int ClustersIn(const std::string& path) {
  Session session;
  if (!ReadCBFile(session, path)) return -1;
  int defined = 0;
  while (defined < kClusters && session.ClusterDefined[defined + 1] &&
         session.Clusters[defined + 1].BoundaryCount == kBoundariesPerCluster)
    ++defined;
  return defined;
}

}  // namespace

int main(int argumentCount, char** arguments) {
  if (argumentCount < 2) return 2;
  const Session small = CutOf(1, arguments[1]), large = CutOf(kClusters, arguments[1]);
  const std::string path = BoundariesFilePath(small, "cut");
  if (argumentCount > 2 && arguments[2] == std::string_view("check")) {
    const int clusters = ClustersIn(path);
    if (clusters != 1 && clusters != kClusters) std::printf("torn: %d clusters\n", clusters);
    return clusters == 1 || clusters == kClusters ? 0 : 1;
  }
  RecordingWorld world;
  for (;;) {
    WriteCBFile(small, world, path);
    WriteCBFile(large, world, path);
    std::printf(".");
    std::fflush(stdout);
  }
}
