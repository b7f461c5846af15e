#include <gtest/gtest.h>

#include "pallomir/files/file_reader.h"
#include "pallomir/results/compute_direction.h"
#include "pallomir/results/compute_maps.h"
#include "pallomir/results/measure_settings_file.h"
#include "support/analysis_files.h"
#include "support/recording_world.h"
#include "support/refusal.h"

namespace pallomir {
namespace {

TEST(MeasureSettings, AreReadFromTheFolderOrTheOneAbove) {
  const TemporaryFolder folder;
  folder.Put("TT1/note", "");
  EXPECT_EQ(ReadMeasureSettings(folder / "TT1"), MeasureSettings());
  folder.Put("MeasureSettings", "# rest left out\r\nSlowestCm 2.5\r\n\r\n  Shifts\t200  \n");
  MeasureSettings expected;
  expected.Map.SlowestCm = 2.5;
  expected.Chance.Shifts = 200;
  EXPECT_EQ(ReadMeasureSettings(folder / "TT1"), expected);
  folder.Put("TT1/MeasureSettings", "BinCm 3\nDirectionBins 36");
  expected = {};
  expected.Map.BinCm = 3;
  expected.Direction.Bins = 36;
  EXPECT_EQ(ReadMeasureSettings(folder / "TT1"), expected) << "only the nearer one counts";
}

TEST(MeasureSettings, NameTheLineThatIsWrong) {
  const TemporaryFolder folder;
  const auto refusal = [&](const char* text) {
    folder.Put("MeasureSettings", text);
    return Refusal([&] { ReadMeasureSettings(folder / "."); });
  };
  EXPECT_NE(refusal("BinCm 2\nbincm 3\n").find("line 2: \"bincm\" is not a setting"), std::string::npos);
  for (const char* line : {"BinCm", "BinCm 0", "BinCm x", "BinCm 2 3", "BinCm none", "BinCm nan", "Shifts 1.5",
                           "Shifts 1e9", "DirectionBins -60", "JumpCm 0", "Seed -1"})
    EXPECT_NE(refusal(line).find(" must be a "), std::string::npos) << line;
  EXPECT_EQ(refusal("FastestCm none\nSeed 9007199254740992\nMinimumOccupancy 0"), "");
}

/// Maps and directions follow the settings and say so; the defaults leave the files as they were.
TEST(MeasureSettings, ApplyToTheAnalysesAndAreWrittenWithThem) {
  const TemporaryFolder folder;
  RecordingWorld world;
  const AnalysisFiles files = PutSpikes(folder, {0, 200'000}, {10'000, 39'999, 115'000});
  folder.Put("Pos.p", "0 15 25\n40000 35 25\n100000 15 25\n110000 16 25\n120000 15 25\n900000 99 99\n");
  const auto map = [&] {
    ComputeRateMap(world, files.Cluster, files.Time, folder / "Pos.p", folder / "tmp.rmap");
    return ReadText(folder / "tmp.rmap");
  };
  const std::string usual = map();
  EXPECT_EQ(usual.find("SmoothingBins"), std::string::npos);
  folder.Put("MeasureSettings", "BinCm 2.5\nSmoothingBins 2\nShifts 10\n");
  const auto body = [](const std::string& text) { return text.substr(static_cast<size_t>(TextHeaderLength(text))); };
  EXPECT_EQ(body(map()), body(usual));
  EXPECT_EQ(map().find("SmoothingBins"), std::string::npos);
  folder.Put("MeasureSettings", "SmoothingBins 0\nDirectionBins 8\n");
  const std::string other = map();
  EXPECT_NE(other.find("# SmoothingBins: 0\r\n"), std::string::npos);
  EXPECT_NE(body(other), body(usual));
  const MapResult read = ReadMapFile(folder / "tmp.rmap");
  EXPECT_NE(UsageText(read.Used).find("SmoothingBins 0"), std::string::npos) << UsageText(read.Used);
  const DirectionResult direction = ComputeDirection(world, files.Time, folder / "Pos.p", files.Cluster);
  EXPECT_EQ(direction.Tuning.Count(), 8);
}

}  // namespace
}  // namespace pallomir
