// From the files that the cluster file writer leaves to the files that the windows show.

#include <gtest/gtest.h>

#include <cmath>

#include "pallomir/files/error.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/file_utility.h"
#include "pallomir/results/compute_direction.h"
#include "pallomir/results/compute_maps.h"
#include "pallomir/results/compute_trains.h"
#include "pallomir/results/spike_times.h"
#include "support/analysis_files.h"
#include "support/recording_world.h"
#include "support/refusal.h"

namespace pallomir {
namespace {

struct Analyses : ::testing::Test {
  const TemporaryFolder folder;
  RecordingWorld world;

  /// The contents after the header of a file in the folder.
  std::string Body(const std::string& name) const {
    const std::string text = ReadText(folder / name);
    return text.substr(static_cast<size_t>(TextHeaderLength(text)));
  }
  MapResult RateMapOf(const AnalysisFiles& files, const std::string& positions) {
    return ComputeRateMap(world, files.Cluster, files.Time, folder.Put("Pos.p", positions), folder / "tmp.rmap");
  }
};

TEST_F(Analyses, RateAndOccupancyMapOfAHandfulOfSpikes) {
  const std::string positions = "0 15 25\n40000 35 25\n100000 15 25\n110000 0 0\n120000 15 25\n900000 99 99\n";
  const AnalysisFiles files = PutSpikes(folder, {0, 200'000}, {10'000, 39'999, 40'000, 115'000, 250'000, 170'000});
  const MapResult rate = RateMapOf(files, positions);
  // Samples hold 40, 60, 10, 10 (interpolated) and 25 ms (the median): 85 and 60 ms in bins two apart.
  const double g = std::exp(-0.5);
  EXPECT_NEAR(rate.Grid.Values[0], (3 + g) / (0.085 + g * 0.06), 1e-9);
  EXPECT_NEAR(rate.Grid.Values[2], (3 * g + 1) / (g * 0.085 + 0.06), 1e-9);
  EXPECT_EQ(UsageText(rate.Used),
            "Used 4 of 5 spikes. 1 spike was outside the time range. 1 spike was out of time order and sorted. 1 lost "
            "position sample was interpolated.");
  EXPECT_EQ(rate.Explanation, "");

  ComputeOccupancyMap(world, files.Cluster, folder / "Pos.p", folder / "tmp.occ");
  EXPECT_EQ(Body("tmp.occ"), "3,1,10,20,10,s\r\n0.085,0,0.06\r\n");
  EXPECT_TRUE(Body("tmp.rmap").starts_with("3,1,10,20,10,spikes/s\r\n"));
  EXPECT_NE(Body("tmp.rmap").find(",NaN,"), std::string::npos);

  const MapResult read = ReadMapFile(folder / "tmp.rmap");
  EXPECT_EQ(read.Used.SpikesUsed, 4);
  EXPECT_NEAR(read.Grid.Values[0], rate.Grid.Values[0], 1e-12);
  EXPECT_NEAR(read.MeanRate, rate.MeanRate, 1e-12);
  EXPECT_NEAR(read.Information, rate.Information, 1e-12);

  const MapResult lags = ComputeSpatialAutoCorr(world, folder / "tmp.rmap");
  EXPECT_EQ(lags.Explanation, "The rate map has 2 visited bins; a correlation needs at least 20.");
  EXPECT_EQ(Body("tmp.2DAcorr"), "5,1,-25,-5,10,r\r\nNaN,NaN,NaN,NaN,NaN\r\n");
  EXPECT_EQ(ReadMapFile(folder / "tmp.2DAcorr").Used.SpikesUsed, 4);
}

TEST_F(Analyses, TheScaleSetsTheBinSize) {
  const AnalysisFiles files = PutSpikes(folder, {0, 1'000'000}, {1});
  const std::string positions = TextHeader("PosFile") + "PixelsPerCm,3\r\n0,7,7,1\r\n30000,8,7,1\r\n";
  EXPECT_EQ(RateMapOf(files, positions).Grid.Bin, 8);
  EXPECT_EQ(ReadMapFile(folder / "tmp.rmap").PixelsPerCm, 3);
}

TEST_F(Analyses, TrainsAndDirection) {
  const AnalysisFiles files = PutSpikes(folder, {0, 1'000'000}, {1'000, 2'500, 42'500});
  ComputeAutoCorr(world, files.Cluster, files.Time, folder / "tmp.acorr");
  const TrainAutocorrelation train = ReadAutocorrelationFile(folder / "tmp.acorr").Correlation;
  EXPECT_EQ(train.Near.Pairs[1] + train.Near.Pairs[40] + train.Near.Pairs[41] + train.Far.Pairs[8], 5);
  const std::string body = Body("tmp.acorr");
  EXPECT_EQ(body.substr(0, body.find("1,-49")), "width (ms),from (ms),to (ms),pairs\r\n1,-50,-49,0\r\n");
  EXPECT_NE(body.find("\r\n1,-2,-1,1\r\n1,-1,0,0\r\n1,0,1,0\r\n1,1,2,1\r\n"), std::string::npos);
  EXPECT_NE(body.find("\r\n5,-500,-495,0\r\n"), std::string::npos);

  ComputeLogISI(world, files.Cluster, files.Time, folder / "tmp.isi");
  const IntervalResult intervals = ReadIntervalFile(folder / "tmp.isi");
  EXPECT_EQ(intervals.Intervals.RefractoryShare(), 0.5);
  EXPECT_EQ(intervals.Intervals.Counts[26], 1);
  EXPECT_TRUE(Body("tmp.isi").starts_with("from (ms),to (ms),intervals\r\n0.1,0.125892541179417,0\r\n"));

  folder.Put("Pos.p", "0 1 1 95\n30000 1 1 95\n60000 1 1 200\n");
  ComputeDirection(world, files.Time, folder / "Pos.p", files.Cluster);
  const DirectionResult direction = ReadDirectionFile(folder / "ttmp.dir");
  EXPECT_FALSE(direction.OfTravel);
  EXPECT_EQ(direction.Tuning.Spikes[15], 3);
  EXPECT_NEAR(direction.Tuning.VectorDirection, 93, 1e-9);
  folder.Put("Pos.p", "0 10 10\n30000 12 12\n60000 14 14\n");
  ComputeDirection(world, files.Time, folder / "Pos.p", files.Cluster);
  EXPECT_TRUE(ReadDirectionFile(folder / "ttmp.dir").OfTravel);
  EXPECT_NEAR(ReadDirectionFile(folder / "ttmp.dir").Tuning.VectorDirection, 315, 3);
}

TEST_F(Analyses, SpikesWithoutAUsableTimestampAreLeftOutAndReported) {
  const AnalysisFiles files = PutSpikes(folder, {0, 1'000'000}, {1'000, 2'500});
  folder.Put("ttmp", "1000\r\n1.84467440737096E+19\r\n2500\r\n-2e18\r\n");
  ComputeLogISI(world, files.Cluster, files.Time, folder / "tmp.isi");
  const IntervalResult result = ReadIntervalFile(folder / "tmp.isi");
  EXPECT_EQ(result.Intervals.Intervals, 1);
  EXPECT_EQ(result.Used.SpikesUnreadable, 2);
  EXPECT_EQ(UsageText(result.Used), "Used 2 of 2 spikes. 2 spikes have an impossible timestamp: left out.");
}

TEST_F(Analyses, AnEmptyPlotSaysWhy) {
  const std::string good = "0 15 25 9\n30000 35 25 9\n60000 15 25 9\n";
  struct Case {
    std::vector<int64_t> Spikes;
    std::string Positions, Map, Direction;
  };
  const std::string outside =
      "No position sample lies within the time range of 0 to 100000 microseconds; those of "
      "Pos.p range from 200000 to 230000 microseconds.";
  const std::string lost = "The animal was lost in all position samples within the time range (2).";
  const std::string timeless =
      "The position samples within the time range span no time: there is only one, or all have the same timestamp.";
  const std::string silent = "The cluster has no spike within the time range of 0 to 100000 microseconds.";
  const std::string missed = "No spike of the cluster falls on a usable position sample.";
  const std::string still = "Pos.p contains no directions, and the animal never travelled faster than 20 pixels/s.";
  const Case cases[] = {
      {{1}, "", "Pos.p contains no position samples.", "Pos.p contains no position samples."},
      {{1}, "200000 1 1 1\n230000 1 1 1\n", outside, outside},
      {{1}, "0 0 0\n30000 0 0\n", lost, lost},
      {{0}, "0 5 5 5\n", timeless, timeless},
      {{}, good, silent, silent},
      {{500'000}, good, silent, silent},
      {{95'000}, good, missed, missed},
      {{1}, "0 1 1\n30000 1 1\n", "", still},
      {{1},
       "0 1 1 -1\n30000 1 1 -1\n99000000 1 1 7\n",
       "",
       "No position sample within the time range has a direction."},
      {{1}, good, "", ""},
  };
  for (const Case& c : cases) {
    const AnalysisFiles files = PutSpikes(folder, {0, 100'000}, c.Spikes);
    const MapResult rate = RateMapOf(files, c.Positions);
    EXPECT_EQ(rate.Explanation, c.Map);
    EXPECT_EQ(ReadMapFile(folder / "tmp.rmap").Explanation, c.Map);
    EXPECT_EQ(ReadText(folder / "tmp.rmap", 600).find(": NaN"), std::string::npos);
    EXPECT_NE(ComputeSpatialAutoCorr(world, folder / "tmp.rmap").Explanation, "");
    EXPECT_EQ(ComputeDirection(world, files.Time, folder / "Pos.p", files.Cluster).Explanation, c.Direction);
    EXPECT_EQ(ReadDirectionFile(files.Time + ".dir").Explanation, c.Direction);
    EXPECT_NE(ComputeAutoCorr(world, files.Cluster, files.Time, folder / "tmp.acorr").Explanation, "");
    EXPECT_NE(ComputeLogISI(world, files.Cluster, files.Time, folder / "tmp.isi").Explanation, "");
  }
}

TEST_F(Analyses, OnlyATrainWithoutPairsOrIntervalsSaysWhyItsPlotIsEmpty) {
  struct Case {
    std::vector<int64_t> Spikes;
    std::string Pairs, Intervals;
  };
  const Case cases[] = {{{1},
                         "The cluster has a single spike within its time range.",
                         "The cluster has a single spike within its time range: there is no interval."},
                        {{1, 500'001}, "No two spikes of the cluster are less than 500 ms apart.", ""},
                        {{1, 500'000}, "", ""},
                        {{1, 50}, "", "No interval lies between 0.1 ms and 100 s."},
                        {{1, 50, 150}, "", ""}};
  for (const Case& c : cases) {
    const AnalysisFiles files = PutSpikes(folder, {0, 1'000'000}, c.Spikes);
    EXPECT_EQ(ComputeAutoCorr(world, files.Cluster, files.Time, folder / "tmp.acorr").Explanation, c.Pairs);
    EXPECT_EQ(ComputeLogISI(world, files.Cluster, files.Time, folder / "tmp.isi").Explanation, c.Intervals);
  }
}

TEST_F(Analyses, FaultyFilesAreNamed) {
  const AnalysisFiles files = PutSpikes(folder, {0, 100'000}, {1});
  folder.Put("Pos.p", "0 1 1\n30000 1 1\n");
  const auto rate = [&](const std::string& cluster, const std::string& time) {
    return Refusal([&] { ComputeRateMap(world, cluster, time, folder / "Pos.p", folder / "tmp.rmap"); });
  };
  EXPECT_EQ(rate(folder.Put("c", TextHeader("Cl-File") + "0\r\nlast\r\n"), files.Time),
            "c, line 7: \"last\" is not a number.");
  EXPECT_EQ(rate(folder.Put("c", TextHeader("Cl-File")), files.Time), "c ended early, at line 6.");
  EXPECT_EQ(rate(files.Cluster, folder.Put("t", TextHeader("TFile") + "12\r\n1,2\r\n")),
            "t, line 7: \"1,2\" is not the timestamp of a spike.");
  EXPECT_EQ(rate(files.Cluster, folder.Put("t", "nan")), "t, line 1: \"nan\" is not the timestamp of a spike.");
  EXPECT_FALSE(FileUtility::FileExists(folder / "tmp.rmap"));

  const std::string header = TextHeader("RateMap");
  const std::pair<std::string, std::string> maps[] = {
      {"1,1,0,0,10,r\r\n1\r\n", "m is not a map file."},
      {TextHeader("CBFile") + "1,1,0,0,10,r\r\n1\r\n", "m is not a map file."},
      {header + "1,1,0,0\r\n1\r\n", "m, line 6: this should be columns,rows,left,top,bin,unit."},
      {header + "1e6,1e6,0,0,10,r\r\n1\r\n", "m, line 6: 1000000 columns and 1000000 rows do not make a map."},
      {header + "2,2,0,0,0,r\r\n1\r\n", "m, line 6: the bin size must be above 0."},
      {header + "2,2,0,0,10,r\r\n1,2\r\n", "m ended early, at line 8."},
      {header + "2,1,0,0,10,r\r\n1,2,3\r\n", "m, line 7: there should be 2 numbers."},
      {header + "2,1,0,0,10,r\r\n1,x\r\n", "m, line 7: \"x\" is not a number."},
      {header + "2,1,0,0,10,r\r\n1,NaN\r\n5,6\r\n", "m, line 7: the map should end here."},
      {TextHeader("RateMap", {}, {{"Spikes", "many"}}) + "0,0,0,0,10,r\r\n",
       "m, header: \"many\" is not a valid value of Spikes."},
  };
  for (const auto& [bytes, refusal] : maps) {
    folder.Put("m", bytes);
    EXPECT_EQ(Refusal([&] { ReadMapFile(folder / "m"); }), refusal);
  }
  EXPECT_EQ(Refusal([&] { ReadDirectionFile(folder / "m"); }), "m is not a file of kind HeadDirection.");
}

TEST_F(Analyses, LongWorkCanBeStopped) {
  std::string positions;
  for (int64_t i = 0; i < 200'000; ++i) positions += std::to_string(33'000 * i) + ",123.5,77.25,90\r\n";
  world.InterruptAt = 1;
  const AnalysisFiles files = PutSpikes(folder, {0, 100'000}, {1});
  EXPECT_THROW(RateMapOf(files, positions), Interrupted);
  EXPECT_FALSE(world.ProgressVisible);
}

TEST_F(Analyses, ReadingALongFileReportsProgress) {
  world.Slow = true;
  for (const char* line : {"12\n", "12\r\n"}) {
    std::string lines;
    for (int i = 0; i < 10 * 1024; ++i) lines += line;
    world.Progress.clear();
    ForEachNumberedLine(world, folder.Put("long", lines), [](const NumberedLine&) {});
    // Every tenth of the file is reported, once the bar is visible.
    ASSERT_FALSE(world.Progress.empty());
    const int last = static_cast<int>(world.Progress.size()) - 1;
    for (int told = 0; told <= last; ++told)
      EXPECT_NEAR(world.Progress[told], 32766 * (10 - last + told) / 10.0, 1) << told;
    EXPECT_FALSE(world.ProgressVisible);
  }
}

}  // namespace
}  // namespace pallomir
