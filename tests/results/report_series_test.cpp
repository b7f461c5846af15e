#include "pallomir/results/report_series.h"

#include <gtest/gtest.h>

#include <cmath>

#include "pallomir/files/text_header.h"
#include "support/recording_world.h"
#include "support/refusal.h"
#include "support/temporary_folder.h"

namespace pallomir {
namespace {

/// A line of a cluster file: record number, peaks of channels 1 to 8 and 10 to 17, timestamp.
std::string Line(const std::string& stamp, const std::vector<std::string>& peaks) {
  std::string line = "12345";
  for (size_t k = 0; k < 16; ++k) line += "," + (k < peaks.size() ? peaks[k] : "0");
  return line + "," + stamp + "\r\n";
}

TEST(ReportSeries, ReadsTheSpikesOfAClusterFile) {
  const TemporaryFolder folder;
  const std::string path = folder.Put(
      "cl-tmp", TextHeader("Cl-File") + "1000\r\n5000.6\r\n" + Line("2000", {"10", "40.5", "-3"}) +
                    Line("1000", {"-10", "-4", "-3"}) + Line("5001", {"900"}) + Line("5000", {"1E+02", "7", "0"}));
  RecordingWorld world;
  const ClusterLines lines = ReadClusterLines(world, path);
  EXPECT_EQ(lines.Time, (std::vector<int64_t>{1000, 2000, 5000})) << "the same as of the time file";
  EXPECT_EQ(lines.MaxHeight, (std::vector<float>{-3, 40.5F, 100})) << "channels that were not recorded do not count";
  EXPECT_EQ(lines.First, 1000);
  EXPECT_EQ(lines.Last, 5000);
}

TEST(ReportSeries, RefusesWhatIsNotAClusterFile) {
  const TemporaryFolder folder;
  RecordingWorld world;
  struct Case {
    std::string Bytes, Refused;
  };
  for (const Case& c : {Case{"", "cl-tmp ended early, at line 1."}, Case{"0\r\n", "cl-tmp ended early, at line 2."},
                        Case{"0\r\nsoon\r\n", "cl-tmp, line 2: \"soon\" is not a number."},
                        Case{"0,9\r\n", "cl-tmp, line 1: \"0,9\" is not a time."},
                        Case{"0\r\n9\r\n1,2,3\r\n", "cl-tmp, line 3: \"1,2,3\" is not a spike."},
                        Case{"0\r\n9\r\n\r\n" + Line("7,8", {}),
                             "cl-tmp, line 4: \"12345,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,7,\" is not a spike."},
                        Case{"0\n9\n" + Line("1", {"nano"}),
                             "cl-tmp, line 3: \"12345,nano,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0\" is not a spike."}})
    EXPECT_EQ(Refusal([&] { ReadClusterLines(world, folder.Put("cl-tmp", c.Bytes)); }), c.Refused);
  EXPECT_TRUE(ReadClusterLines(world, folder.Put("cl-tmp", "0\n9")).Time.empty());
}

TEST(ReportSeries, OneOddSpikeDoesNotRefuseTheCluster) {
  const TemporaryFolder folder;
  const std::string path = folder.Put("cl-tmp", "1000\n1.84467440737096e+19\n" + Line("2000", {"10", "40"}) +
                                                    Line("3000", {"nan", "7"}) + Line("4000", {"-inf", "7"}) +
                                                    Line("5000", {"1e99"}) + Line("1.84467440737096E+19", {"1"}));
  RecordingWorld world;
  const ClusterLines lines = ReadClusterLines(world, path);
  EXPECT_EQ(lines.Time, (std::vector<int64_t>{2000, 3000, 4000, 5000}));
  EXPECT_EQ(lines.MaxHeight[0], 40);
  for (const size_t odd : {1U, 2U, 3U}) EXPECT_TRUE(std::isnan(lines.MaxHeight[odd])) << odd;
  EXPECT_EQ(lines.WithoutHeight, 3);
  EXPECT_EQ(std::pair(lines.First, lines.Last), std::pair(int64_t{2000}, int64_t{5000})) << "no end 584,000 years off";
}

TEST(ReportSeries, AnglesAreCounterClockwiseInTheVideoImage) {
  const Position centre{100, 50};
  for (const auto& [x, y, angle] : {std::tuple(110.0, 50.0, 0.0),
                                    {110.0, 60.0, 315.0},
                                    {100.0, 60.0, 270.0},
                                    {90.0, 50.0, 180.0},
                                    {100.0, 40.0, 90.0},
                                    {110.0, 40.0, 45.0}})
    EXPECT_DOUBLE_EQ(AngleAbout(centre, x, y), angle);
  EXPECT_EQ(AngleAbout(centre, 200, 50 + 1e-18), 0);
  EXPECT_LT(AngleAbout({0, 0}, 1, 1e-300), 360);
  EXPECT_TRUE(std::isnan(AngleAbout(centre, 100, 50)));
  EXPECT_TRUE(std::isnan(AngleAbout(centre, NAN, 50)));
}

TEST(ReportSeries, PositionsAreThoseOfTheSamples) {
  const std::vector<double> x{1, 2, NAN}, y{-1, 0, NAN};
  const PositionSeries series = PositionsOfSpikes(std::vector<int64_t>{1, -1, 0, 2}, x, y, {0, 0});
  EXPECT_EQ(series.X[0], 2);
  EXPECT_EQ(series.Y[2], -1);
  EXPECT_DOUBLE_EQ(series.Angle[2], 45);
  for (const size_t unknown : {1U, 3U}) EXPECT_TRUE(std::isnan(series.X[unknown]) && std::isnan(series.Angle[unknown]));
}

}  // namespace
}  // namespace pallomir
