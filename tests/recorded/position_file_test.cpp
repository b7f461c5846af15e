#include "pallomir/recorded/position_file.h"

#include <gtest/gtest.h>

#include <cmath>

#include "pallomir/files/error.h"
#include "pallomir/files/text_header.h"
#include "pallomir/recorded/angle_header.h"
#include "support/analysis_files.h"
#include "support/parameter_files.h"
#include "support/recording_world.h"
#include "support/refusal.h"

namespace pallomir {
namespace {

/// "time x y direction" of every sample, "-" if unknown.
std::string Shown(const Positions& positions) {
  std::string text;
  const auto show = [](double value) {
    return std::isnan(value) ? std::string(" -") : " " + std::to_string(std::lround(value * 10));
  };
  for (size_t i = 0; i < positions.Time.size(); ++i)
    text += std::to_string(positions.Time[i]) + show(positions.X[i]) + show(positions.Y[i]) +
            show(positions.Direction[i]) + "; ";
  return text;
}

TEST(PositionFile, IsRecognisedByItsContent) {
  // Video angles are clockwise from +y, which is drawn downward; text angles are counter-clockwise from the right.
  const std::string frames = VideoFrame(1000, 10, 20, 180) + VideoFrame(2000, 0, 0, 9) + VideoFrame(3000, 5, -6, 90);
  const std::string shown = "1000 100 200 900; 2000 - - -; 3000 50 -60 0; ";
  const std::pair<std::string, std::string> cases[] = {
      {TextHeader("PosFile") + "PixelsPerCm,4\r\n1000,10,20,90\r\n2000,0,0,-1\r\n3000,5,-6,0\r\n", shown},
      {TextHeader("PosFile", {}, HeaderEntries(kVideoAngles)) +
           "PixelsPerCm,4\r\n1000,10,20,180\n2000,0,0,-1\n3000,5,-6,90",
       shown},
      {AcquisitionHeader() + frames, shown},
      {AcquisitionHeader() + frames + "part of a frame", shown},
      {frames, shown},
      {VideoFrame(1000, 10, 20, 180), "1000 100 200 900; "},
      {"time,x,y,angle\n1000,10,20,90\n2000,,,\n3000,5,-6,0", shown},
      {"# a note\n\n1000\t10.0\t2e1\t90\r\n2000 NaN 7 1\r\n  3000 ; 5 ; -6 ; 360 \r\n", shown},
      {"1000 10 20\n2000 0 0\n3000 5 -6\n", "1000 100 200 -; 2000 - - -; 3000 50 -60 -; "},
      // All directions are 0: the head was not tracked.
      {"1000 10 20 0\n2000 3 0 0\n", "1000 100 200 -; 2000 30 0 -; "},
      {"1000.6 1 2 -90\n2000 1 2 361\n3000 1 2 359.9\n", "1001 10 20 -; 2000 10 20 -; 3000 10 20 3599; "},
      {"", ""},
      {TextHeader("PosFile"), ""},
      {AcquisitionHeader(), ""},
  };
  const TemporaryFolder folder;
  RecordingWorld world;
  for (const auto& [bytes, expected] : cases) {
    const Positions positions = ReadPositions(folder.Put("Pos.p", bytes));
    EXPECT_EQ(Shown(positions), expected) << bytes.substr(0, 200);
    EXPECT_EQ(positions.Disordered + positions.Unreadable, 0) << bytes.substr(0, 200);
    EXPECT_EQ(positions.PixelsPerCm, bytes.find("PixelsPerCm") == std::string::npos ? 0 : 4);
  }
}

TEST(PositionFile, CountsDamageThatItCanReadPast) {
  const TemporaryFolder folder;
  RecordingWorld world;
  const std::string bytes = "3000 1 1 10\n1000 2 2 20\nwhat\n3000 3 3 30\n2000 4 4\n2500 5\n2600 1 2 3 4\n";
  const Positions positions = ReadPositions(folder.Put("Pos.p", bytes));
  EXPECT_EQ(Shown(positions), "1000 20 20 200; 2000 40 40 -; 3000 10 10 100; 3000 30 30 300; ");
  EXPECT_EQ(positions.Disordered, 2);
  EXPECT_EQ(positions.Unreadable, 3);
  const std::string frames = VideoFrame(9000, 1, 1, 5) + VideoFrame(8000, 2, 2, 5) + VideoFrame(~0ULL >> 2, 3, 3, 5);
  std::string many;
  for (int f = 0; f < 70; ++f) many += VideoFrame(1 + f, 1, 1, 1);
  const Positions video = ReadPositions(folder.Put("VT1.Nvt", many + frames));
  EXPECT_EQ(video.Time.size(), size_t{72});
  EXPECT_EQ(video.Time.back(), 9000);
  EXPECT_EQ(video.Disordered, 1);
  EXPECT_EQ(video.Unreadable, 1);
}

TEST(PositionFile, ReportsProgressWhateverEndsALine) {
  const TemporaryFolder folder;
  for (const char* end : {"\n", "\r\n"}) {
    std::string text;
    for (int64_t i = 0; i < 4 * 4096; ++i) text += std::to_string(1'000'000 + i) + ",5,7" + end;
    std::vector<double> shares;
    ReadPositions(folder.Put("Pos.p", text), Progress([&](double share) {
                    shares.push_back(share);
                    return true;
                  }));
    EXPECT_EQ(shares, (std::vector<double>{0.25, 0.5, 0.75, 1})) << text.substr(0, 20);
  }
}

TEST(PositionFile, RefusesOtherFiles) {
  std::string spikes = AcquisitionHeader() + std::string(20 * 304, '\1');
  spikes.replace(10, 16, "\n-RecordSize 304");
  const std::pair<std::string, std::string> cases[] = {
      {"30", "Pos.p is not a position file: \"30\" is not a time, x, y and optionally an angle."},
      {"a b\nc d\ne\n", "Pos.p is not a position file: \"c d\" is not a time, x, y and optionally an angle."},
      {"1 1e10 0\n", "Pos.p is not a position file: \"1 1e10 0\" is not a time, x, y and optionally an angle."},
      {std::string(9000, 'x'),
       "Pos.p is not a position file: \"" + std::string(40, 'x') + "\" is not a time, x, y and optionally an angle."},
      {TextHeader("PosFile", {}, {{"AngleZero", "up"}}) + "1 2 3 4",
       "Pos.p: AngleZero in the header must be +x, +y, -x, -y or a number of degrees."},
      {TextHeader("PosFile", {}, {{"AngleZero", "12"}, {"AngleSense", "left"}}) + "1 2 3 4",
       "Pos.p: AngleSense in the header must be \"cw\" or \"ccw\"."},
      {"PixelsPerCm,0\n1 2 3\n", "Pos.p: PixelsPerCm must be a number above 0."},
      {spikes, "Pos.p is not a position file: it contains neither text nor video frames."},
      {AcquisitionHeader() + VideoFrame(~0ULL, 1, 1, 1),
       "Pos.p is not a position file: it contains neither text nor video frames."},
      {std::string(4000, '\0'), "Pos.p is not a position file: it contains neither text nor video frames."},
      {std::string("\x89PNG\0\1\2\3", 8), "Pos.p is not a position file: it contains neither text nor video frames."},
  };
  const TemporaryFolder folder;
  RecordingWorld world;
  for (const auto& [bytes, refusal] : cases) {
    const std::string path = folder.Put("Pos.p", bytes);
    EXPECT_EQ(Refusal([&] { ReadPositions(path); }).substr(0, refusal.size()), refusal);
  }
  EXPECT_EQ(Refusal([&] { ReadPositions(folder / "none"); }), folder / "none" + " does not exist.");
}

}  // namespace
}  // namespace pallomir
