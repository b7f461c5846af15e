// Writes files over and over, small and large ones in turn, until it is killed; with "check", says whether all files
// are there and whole:
//   keep_writing boundaries|clusters FOLDER [check]

#include <algorithm>
#include <cstdio>
#include <string>
#include <string_view>

#include "pallomir/clusters/boundaries_file.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/file_utility.h"
#include "pallomir/files/text_header.h"
#include "pallomir/output/cluster_files.h"
#include "support/recording_world.h"
#include "support/sessions.h"

using namespace pallomir;

namespace {

// One boundaries file, of one cluster or of 30.

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

void WriteBoundaries(const Session& session) {
  RecordingWorld world;
  WriteCBFile(session, world, BoundariesFilePath(session, "cut"));
}

bool BoundariesWhole(const char* folder) {
  Session session;
  session.DataDirectory = folder;
  if (!ReadCBFile(session, BoundariesFilePath(session, "cut"))) return false;
  int defined = 0;
  while (defined < kClusters && session.ClusterDefined[defined + 1] &&
         session.Clusters[defined + 1].BoundaryCount == kBoundariesPerCluster)
    ++defined;
  return defined == 1 || defined == kClusters;
}

// The files of five clusters and of the unclassified spikes, with 10 spikes each or with 3000.

constexpr int kWritten = 5, kFew = 10, kMany = 3000;

Session SpikesOf(int each, const char* folder) {
  Session session = SessionWith(std::vector<Vertex>(static_cast<size_t>(each * (kWritten + 1)), {1.25F, -7}));
  session.DataDirectory = folder;
  session.Points.AddSlot();
  for (size_t i = 0; i < session.Points.Rows(); ++i)
    session.Points.Slot(0)[i] = static_cast<int16_t>(i % (kWritten + 1));
  for (int c = 1; c <= kWritten; ++c) session.ClusterDefined[c] = true;
  return session;
}

void WriteClusters(const Session& session) {
  RecordingWorld world;
  WriteClusterFiles(session, world, {"cl", "0", "1"});
}

bool ClusterFileWhole(const std::filesystem::path& path) {
  const std::string text = ReadText(path);
  const long header = TextHeaderLength(text);
  if (header < 0 || !text.ends_with("\r\n")) return false;
  const auto lines = std::count(text.begin() + header, text.end(), '\n') - 2;
  const auto commas = std::count(text.begin() + header, text.end(), ',');
  return (lines == kFew || lines == kMany) && commas == 17 * lines;
}

bool ClustersWhole(const char* folder) {
  Session session;
  session.DataDirectory = folder;
  if (!ClusterFileWhole(UnclassifiedFilePath(session, "cl"))) return false;
  for (int c = 1; c <= kWritten; ++c) {
    int files = 0;
    for (const std::filesystem::path& path :
         {ClusterFilePath(session, "cl", c), OldClusterFilePath(session, "cl", c)}) {
      if (!FileUtility::FileExists(path)) continue;
      ++files;
      if (!ClusterFileWhole(path)) return false;
    }
    if (files == 0) return false;
  }
  return true;
}

}  // namespace

int main(int argumentCount, char** arguments) {
  if (argumentCount < 3) return 2;
  const bool clusters = arguments[1] == std::string_view("clusters");
  const char* const folder = arguments[2];
  if (argumentCount > 3 && arguments[3] == std::string_view("check")) {
    const bool whole = clusters ? ClustersWhole(folder) : BoundariesWhole(folder);
    if (!whole) std::printf("a file is torn or missing\n");
    return whole ? 0 : 1;
  }
  const Session small = clusters ? SpikesOf(kFew, folder) : CutOf(1, folder);
  const Session large = clusters ? SpikesOf(kMany, folder) : CutOf(kClusters, folder);
  for (;;) {
    for (const Session* session : {&small, &large}) clusters ? WriteClusters(*session) : WriteBoundaries(*session);
    std::printf(".");
    std::fflush(stdout);
  }
}
