// The report's contents, from the files of a cluster, its recording and its notes.

#include "pallomir/analyses/report.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/analysis_files.h"
#include "support/recording_world.h"
#include "support/refusal.h"
#include "support/spike_files.h"

namespace pallomir {
namespace {

constexpr const char* kNoCentre = "Angles are measured about the centre of the tracked area: no center file was read.";

struct ReportOfCluster : ::testing::Test {
  const TemporaryFolder folder;
  RecordingWorld world;
  /// An animal that runs to the right and looks ahead.
  std::string positions = "0 10 50 0\n30000 20 50 1\n60000 30 50 1\n90000 40 50 1\n";

  Report Make(std::pair<double, double> range, const std::vector<int64_t>& spikes) {
    const AnalysisFiles files = PutSpikes(folder, range, spikes);
    std::string records = SpikeFileHeader();
    for (const int64_t spike : spikes) records += SpikeBytes(static_cast<uint64_t>(spike), 100);
    return Make(files, records);
  }
  Report Make(const AnalysisFiles& files, const std::string& records) {
    return MakeReport(world,
                      {folder.Put("TT1.Ntt", records), files.Cluster, files.Time, folder.Put("Pos.p", positions),
                       folder / "CenterCoords", folder / "ClNotes"},
                      7);
  }
};

TEST_F(ReportOfCluster, UsesTheSameSpikesInAllParts) {
  // The end lies between two microseconds; no part uses the spike after it.
  const Report report = Make({999.5, 80'000.6}, {80'001, 999, 1'000, 2'500, 70'000, 80'000});
  EXPECT_EQ(report.Spikes.Time, (std::vector<int64_t>{1'000, 2'500, 70'000, 80'000}));
  EXPECT_EQ(report.Spikes.MaxHeight, std::vector<float>(4, 17));
  EXPECT_EQ(report.SampleOf, (std::vector<int64_t>{-1, -1, 1, 1})) << "of the samples within the range";
  EXPECT_EQ(report.SpikePositions.X.size(), 4);
  EXPECT_EQ(report.Rate.Used.Spikes, 4);
  EXPECT_EQ(report.Measures.Average.Spikes, 4);
  EXPECT_EQ(report.Refractory.Intervals, 3);
  EXPECT_EQ(report.Refractory.Short, 1);
  EXPECT_NEAR(report.MeanRate, 4 / 0.079, 1e-9);
  EXPECT_EQ(report.Direction.SpikesUsed, 2);
  EXPECT_EQ(report.Remarks, std::string("Used 2 of 4 spikes. 2 spikes were outside the time range. 1 spike was out of "
                                        "time order and sorted. ") +
                                kNoCentre);
}

TEST_F(ReportOfCluster, RemarksOnMissingAndSurplusRecordsOfTheSpikeFile) {
  const AnalysisFiles files = PutSpikes(folder, {0, 100'000}, {1'000, 2'000, 3'000, 4'000});
  const std::string odd = SpikeBytes(UINT64_MAX, 1), good = SpikeBytes(1'000, 100) + SpikeBytes(2'000, 100);
  const std::string three = good + SpikeBytes(3'000, 100);
  const std::string start = std::string("Used 4 of 4 spikes. ") + kNoCentre;
  EXPECT_EQ(
      Make(files, SpikeFileHeader() + three + SpikeBytes(2'000, 50) + odd + "x").Remarks,
      start +
          " 1 spike is not in the spike file. 1 record of the spike file shares a spike's timestamp. 1 record of the "
          "spike file has an impossible timestamp. The spike file ends with an incomplete record of 1 byte.");
  EXPECT_EQ(
      Make(files, good + good + odd + odd + "tail").Remarks,
      start +
          " The spike file does not give the volts per count. 2 spikes are not in the spike file. 2 records of "
          "the spike file share a spike's timestamp. 2 records of the spike file have an impossible timestamp. The "
          "spike file ends with an incomplete record of 4 bytes.");
  EXPECT_EQ(Make(files, SpikeFileHeader() + three + SpikeBytes(4'000, 100)).Remarks, start);
}

TEST_F(ReportOfCluster, AnImpossibleEndLeavesRateAndContaminationUnknown) {
  const Report report = Make({0, 18446744073709551615.0}, {1'000, 2'500, 70'000});
  EXPECT_EQ(report.Rate.Used.Spikes, 3);
  EXPECT_TRUE(std::isnan(report.MeanRate));
  EXPECT_FALSE(report.Refractory.ContaminationByOne.Value.Known());
  EXPECT_FALSE(report.Refractory.ContaminationByMany.Value.Known());
  EXPECT_EQ(report.Remarks, std::string("Used 3 of 3 spikes. ") + kNoCentre +
                                " The time range has an impossible start or end: mean rate and contamination are "
                                "unknown.");
}

TEST_F(ReportOfCluster, TakesCentreAndNoteIfTheyCanBeRead) {
  std::string notes;
  for (int c = 0; c <= kClusters; ++c) notes += std::to_string(c) + ",\"\",\"of " + std::to_string(c) + "\"\r\n";
  folder.Put("ClNotes", notes);
  folder.Put("CenterCoords", "20,60\r\n");
  const Report report = Make({0, 100'000}, {30'000});
  EXPECT_EQ(report.Note.Remarks, "of 7");
  EXPECT_TRUE(report.CentreGiven);
  EXPECT_EQ(report.SpikePositions.Angle, std::vector<double>{90}) << "above the centre";
  EXPECT_EQ(report.Remarks, "Used 1 of 1 spikes.");

  folder.Put("ClNotes", "0,\"\"\r\n");
  folder.Put("CenterCoords", "north");
  const Report broken = Make({0, 100'000}, {30'000});
  EXPECT_FALSE(broken.CentreGiven);
  EXPECT_EQ(broken.Centre.X, 25);
  EXPECT_EQ(broken.Note.Remarks, "");
  EXPECT_EQ(broken.Remarks,
            std::string("CenterCoords, line 1: \"north\" is not a number. ClNotes, line 1: there is no field for the "
                        "remarks. Used 1 of 1 spikes. ") +
                kNoCentre);
}

TEST_F(ReportOfCluster, RemarksSayWhichDirectionsAreUsed) {
  const std::string start =
      std::string("Used 1 of 1 spikes. ") + kNoCentre + " Directions are those of travel, not of the head.";
  positions = "0 10 50\n30000 20 50\n60000 30 50\n90000 40 50\n";
  const Report going = Make({0, 100'000}, {30'000});
  EXPECT_EQ(going.Remarks, start);
  EXPECT_EQ(going.Direction.SpikesUsed, 1);
  positions = "0 10 50\n30000 10 50\n60000 10 50\n";
  const Report still = Make({0, 100'000}, {30'000});
  EXPECT_EQ(still.Remarks,
            start + " Pos.p contains no directions, and the animal never travelled faster than 20 pixels/s.");
  EXPECT_TRUE(std::isnan(still.Direction.VectorLength));
  EXPECT_EQ(still.Rate.Explanation, "");
  // Remarks do not repeat what the maps say.
  positions = "";
  const Report nowhere = Make({0, 100'000}, {30'000});
  EXPECT_EQ(nowhere.Occupancy.Explanation, "Pos.p contains no position samples.");
  EXPECT_EQ(nowhere.Remarks.find("Pos.p"), std::string::npos);
}

TEST_F(ReportOfCluster, FailsIfAFileIsMissing) {
  const AnalysisFiles files = PutSpikes(folder, {0, 100'000}, {30'000});
  const std::string missing = folder / "none";
  const std::string spikes = folder.Put("TT1.Ntt", SpikeFileHeader()), tracked = folder.Put("Pos.p", positions);
  for (const ReportFiles& asked : {ReportFiles{missing, files.Cluster, files.Time, tracked, missing, missing},
                                   ReportFiles{spikes, missing, files.Time, tracked, missing, missing},
                                   ReportFiles{spikes, files.Cluster, missing, tracked, missing, missing},
                                   ReportFiles{spikes, files.Cluster, files.Time, missing, missing, missing}})
    EXPECT_EQ(Refusal([&] { MakeReport(world, asked, 7); }), missing + " does not exist.");
}

}  // namespace
}  // namespace pallomir
