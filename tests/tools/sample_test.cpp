#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <memory>
#include <sstream>

#include "pallomir/session/parameter_catalogue.h"
#include "raw_files.h"
#include "support/refusal.h"
#include "tools/sample/curves.h"
#include "tools/sample/make_sample.h"
#include "tools/sample/sample_files.h"

namespace pallomir {
namespace {

using namespace pallomir::testing;

ImportReport Make(const TemporaryFolder& folder, const std::string& name, uint64_t spikes, uint64_t seed = 1) {
  std::ostringstream said;
  ProgressBar progress(said, false);
  return MakeSample({folder / name, spikes, seed}, progress);
}

/// The recording that most tests use, made once.
struct SampleRecording : ::testing::Test {
  static void SetUpTestSuite() {
    folder = std::make_unique<TemporaryFolder>();
    report = Make(*folder, "recording", 80'000);
    raw = ReadText(*folder / "recording/TT1/TT1.Ntt").substr(kRawHeaderLength);
    rows = std::make_unique<ParameterRows>(*folder / "recording/TT1/TT1.Ntt.parms");
  }
  static void TearDownTestSuite() { folder.reset(); }

  static uint32_t Cell(size_t row) { return At<uint32_t>(raw, 304 * row + kSpikeCell); }

  static inline std::unique_ptr<TemporaryFolder> folder;
  static inline std::unique_ptr<ParameterRows> rows;
  static inline std::string raw;
  static inline ImportReport report;
};

/// FNV-1a.
uint64_t Hash(const std::string& bytes) {
  uint64_t hash = 0xCBF29CE484222325;
  for (const char c : bytes) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
  return hash;
}

TEST(SampleBytes, DependOnlyOnTheSeed) {
  const TemporaryFolder folder;
  EXPECT_EQ(Make(folder, "a", 3000, 7).Spikes.Count, 3000);
  EXPECT_EQ(Make(folder, "b", 3, 8).Spikes.Count, 3);
  // The bytes as once generated; every machine, compiler and build must generate the same.
  EXPECT_EQ(Hash(ReadText(folder / "a/raw/TT1.Ntt")), 9812641818164177303u);
  EXPECT_EQ(Hash(ReadText(folder / "a/raw/VT1.Nvt")), 16300719987111710071u);
  EXPECT_EQ(Hash(ReadText(folder / "a/raw/Events.Nev")), 14776872789547491407u);
  EXPECT_NE(ReadText(folder / "a/raw/VT1.Nvt"), ReadText(folder / "b/raw/VT1.Nvt"));
  EXPECT_TRUE(ReadText(folder / "a/Pos.p").find("# Date: 2026-01-01 00:00:00\r\n") != std::string::npos);
}

TEST_F(SampleRecording, HasTheOdditiesOfARealRecording) {
  EXPECT_EQ(rows->Count(), 80'000);
  EXPECT_EQ(report.Spikes.Disordered, 0);
  EXPECT_GE(report.Spikes.Lowest, kSampleStart);
  EXPECT_LE(report.Spikes.Highest, kSampleStart + 1'200'000'000);
  EXPECT_NEAR(report.Video.FrameRate, 29.97, 0.3);
  EXPECT_EQ(report.Video.Gaps, 2);
  EXPECT_GT(report.Video.LongestGap, 3'000'000);
  EXPECT_GT(report.Video.LostRuns, 10);
  EXPECT_GT(report.SpikesPlaced, 75'000);
  EXPECT_EQ(ReadText(*folder / "recording/VideoSampling"), "30");
  const std::string events = ReadText(*folder / "recording/TT1/Events.Nev");
  for (const char* text : {"Starting Recording", "Epoch 1 start", "Epoch 2 end", "Epoch 3 end", "Stopping Recording"})
    EXPECT_NE(events.find(text), std::string::npos) << text;
  std::array<std::array<bool, 20>, 20> visited{};
  size_t bins = 0;
  const Positions& samples = report.Video.Samples;
  for (size_t i = 0; i < samples.X.size(); ++i) {
    if (std::isnan(samples.X[i])) continue;
    const auto x = static_cast<size_t>(samples.X[i] - 120) / 20;
    const auto y = static_cast<size_t>(samples.Y[i] - 40) / 20;
    ASSERT_TRUE(x < 20 && y < 20) << samples.X[i] << " " << samples.Y[i];
    bins += !std::exchange(visited[x][y], true);
  }
  EXPECT_GT(bins, 380);
  EXPECT_TRUE(report.Angles.Fits() && report.Angles.HasSense) << AnglesSentence(report.Angles);
  EXPECT_GT(report.Angles.Assumed.Agreement, 0.9);
}

TEST(SampleFolder, IsLeftAloneIfNotEmpty) {
  const TemporaryFolder folder;
  const std::string note = folder.Put("sample/note", "mine");
  EXPECT_EQ(Refusal([&] { Make(folder, "sample", 10); }).find("The folder " + folder / "sample" + " is not empty"), 0);
  EXPECT_FALSE(std::filesystem::exists(folder / "sample/raw"));
  std::ostringstream said;
  ProgressBar progress(said, false);
  MakeSample({.Folder = folder / "sample", .Spikes = 10, .Replace = true}, progress);
  EXPECT_EQ(ParameterRows(folder / "sample/TT1/TT1.Ntt.parms").Count(), 10);
  std::filesystem::remove(folder / "sample/raw/VT1.Nvt");
  std::filesystem::create_symlink(note, folder / "sample/raw/VT1.Nvt");
  EXPECT_EQ(Refusal([&] { MakeSample({.Folder = folder / "sample", .Spikes = 10, .Replace = true}, progress); }),
            folder / "sample/raw/VT1.Nvt" + " is a link, which is neither followed nor replaced; nothing was written.");
  EXPECT_EQ(ReadText(note), "mine");
}

TEST_F(SampleRecording, EveryCellHasARefractoryPeriodAndItsShape) {
  std::array<uint64_t, kCells.size() + 1> last{};
  std::array<double, kCells.size() + 1> width{};
  std::array<int, kCells.size() + 1> count{};
  for (size_t r = 0; r < rows->Count(); ++r) {
    const uint32_t cell = Cell(r);
    ASSERT_LE(cell, kCells.size());
    if (cell > 0 && count[cell] > 0) {
      ASSERT_GE(rows->Stamp(r) - last[cell], kRefractory) << r;
    }
    last[cell] = rows->Stamp(r);
    width[cell] += rows->Value(r, kMaxWidth);
    ++count[cell];
  }
  for (size_t cell = 1; cell <= kCells.size(); ++cell) {
    EXPECT_GT(count[cell], 1000) << cell;
    const bool narrow = kCells[cell - 1].Kind == CellKind::Interneuron;
    EXPECT_NEAR(width[cell] / count[cell], narrow ? 6.5 : 13, 1) << cell;
  }
}

TEST_F(SampleRecording, PlaceCellsFireInTheirFields) {
  for (const uint32_t cell : {1, 2}) {
    int inside = 0;
    int outside = 0;
    for (size_t r = 0; r < rows->Count(); ++r) {
      if (Cell(r) != cell || rows->Value(r, kPosX) == 0) continue;
      const double x = (rows->Value(r, kPosX) - 120) / kSamplePixelsPerCm - kCells[cell - 1].FieldX;
      const double y = (rows->Value(r, kPosY) - 40) / kSamplePixelsPerCm - kCells[cell - 1].FieldY;
      ++(std::hypot(x, y) < kCells[cell - 1].FieldSize + 1 ? inside : outside);
    }
    EXPECT_GT(inside, 12 * outside) << cell;
  }
}

/// How well a cut matches a cell: the share of the cell's spikes that are in it, and the share of its spikes that are
/// the cell's.
struct Separation {
  double Recall, Precision;
};

/// Cuts a cell in the projection of two MPeak parameters, with a box along the line from the origin through the
/// cell's centre, as a user would draw it.
Separation CutOut(const ParameterRows& rows, const std::vector<uint32_t>& cells, uint32_t cell, int xWire, int yWire) {
  double meanX = 0, meanY = 0, n = 0;
  for (size_t r = 0; r < cells.size(); ++r)
    if (cells[r] == cell) meanX += rows.Value(r, kMPeak + xWire), meanY += rows.Value(r, kMPeak + yWire), ++n;
  const double length = std::hypot(meanX, meanY);
  const double cosine = meanX / length, sine = meanY / length;
  meanX /= n, meanY /= n;
  const auto along = [&](size_t r) {
    const double dx = rows.Value(r, kMPeak + xWire) - meanX, dy = rows.Value(r, kMPeak + yWire) - meanY;
    return std::pair{dx * cosine + dy * sine, dy * cosine - dx * sine};
  };
  double varianceAlong = 0, varianceAcross = 0;
  for (size_t r = 0; r < cells.size(); ++r)
    if (cells[r] == cell) {
      const auto [u, v] = along(r);
      varianceAlong += u * u / n, varianceAcross += v * v / n;
    }
  double own = 0, all = 0;
  for (size_t r = 0; r < cells.size(); ++r) {
    const auto [u, v] = along(r);
    if (u * u > 9 * varianceAlong || v * v > 9 * varianceAcross) continue;
    ++all;
    own += cells[r] == cell;
  }
  return {own / n, own / all};
}

TEST_F(SampleRecording, EveryCellCanBeCutInSomeProjectionButNoneShowsAll) {
  std::vector<uint32_t> cells(rows->Count());
  for (size_t r = 0; r < cells.size(); ++r) cells[r] = Cell(r);
  std::array<int, kCells.size() + 1> projectionsOfCell{};
  for (int x = 0; x < 4; ++x)
    for (int y = x + 1; y < 4; ++y) {
      size_t apart = 0;
      for (uint32_t cell = 1; cell <= kCells.size(); ++cell) {
        const auto [recall, precision] = CutOut(*rows, cells, cell, x, y);
        if (recall < 0.97 || precision < 0.97) continue;
        ++apart;
        ++projectionsOfCell[cell];
      }
      EXPECT_LT(apart, kCells.size()) << x << " " << y;
    }
  for (size_t cell = 1; cell <= kCells.size(); ++cell) EXPECT_GE(projectionsOfCell[cell], 1) << cell;
}

TEST(SampleCurves, CosineIsRightToNineDigits) {
  for (int k = -4000; k <= 4000; ++k)
    ASSERT_NEAR(CosTurns(k / 997.0), std::cos(2 * 3.14159265358979323846 * k / 997.0), 1e-9) << k;
}

}  // namespace
}  // namespace pallomir
