#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <sstream>

#include "pallomir/clusters/boundaries_file.h"
#include "support/recording_world.h"
#include "support/temporary_folder.h"
#include "tools/sample/make_sample.h"

namespace pallomir {

/// Gives a cluster one boundary: a square on the peaks of the first two wires.
inline void CutSquare(Session& session, int c, float low, float high) {
  session.ClusterDefined[c] = true;
  session.Clusters[c].BoundaryCount = 1;
  Boundary& boundary = session.Clusters[c].Boundaries[0];
  boundary.XParameter = kMPeak;
  boundary.YParameter = kMPeak + 1;
  boundary.VertexCount = 4;
  boundary.Vertices[0] = {low, low};
  boundary.Vertices[1] = {high, low};
  boundary.Vertices[2] = {high, high};
  boundary.Vertices[3] = {low, high};
}

/// A sample recording with a cut of two overlapping clusters, made once.
struct SampleWithCut : ::testing::Test {
  static void SetUpTestSuite() {
    folder = std::make_unique<TemporaryFolder>();
    std::ostringstream said;
    ProgressBar progress(said, false);
    MakeSample({*folder / "sample", 4000, 1}, progress);
    Session session;
    session.DataDirectory = *folder / "sample/TT1";
    CutSquare(session, 1, 2000, 9000);
    CutSquare(session, 4, 5000, 12'000);
    RecordingWorld world;
    WriteCBFile(session, world, BoundariesFilePath(session, "cut"));
  }
  static void TearDownTestSuite() { folder.reset(); }

  static inline std::unique_ptr<TemporaryFolder> folder;
};

}  // namespace pallomir
