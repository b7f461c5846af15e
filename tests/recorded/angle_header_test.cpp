#include "pallomir/recorded/angle_header.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "pallomir/recorded/position_file.h"
#include "pallomir/science/behaviour/tracking.h"
#include "support/analysis_files.h"
#include "support/recording_world.h"

namespace pallomir {
namespace {

TEST(AngleConvention, GivesTheDirectionOfTheHeadOnTheMap) {
  struct Case {
    double Angle;
    AngleConvention Convention;
    double Heading;
  };
  const Case cases[] = {
      // (x, y) = (sin a, cos a); +y is drawn downward, at 270 degrees.
      {0, kVideoAngles, 270},       {90, kVideoAngles, 0},
      {180, kVideoAngles, 90},      {359, kVideoAngles, 269},
      {0, kTextAngles, 0},          {90, kTextAngles, 90},
      {359.5, kTextAngles, 359.5},  {0, {0, true, false}, 0},
      {30, {0, true, false}, 30},   {30, {0, false, false}, 330},
      {30, {0, true, true}, 330},   {10, {270, true, false}, 100},
      {10, {90, false, true}, 100}, {10, {12.5, false, true}, 22.5},
  };
  for (const Case& c : cases)
    EXPECT_DOUBLE_EQ(HeadingOf(c.Angle, c.Convention), c.Heading) << c.Angle << " " << ConventionText(c.Convention);
}

TEST(AngleConvention, IsStoredInTheHeaderOfAPositionFile) {
  for (const AngleConvention& convention :
       {kVideoAngles, kTextAngles, AngleConvention{180, false, false}, AngleConvention{12.5, true, true}})
    EXPECT_EQ(ConventionFrom(TextHeader("PosFile", {}, HeaderEntries(convention)), "Pos.p"), convention);
  EXPECT_EQ(ConventionFrom(TextHeader("PosFile"), "Pos.p"), kTextAngles);
  EXPECT_EQ(AngleZeroFromText("-90"), 270);
  EXPECT_EQ(AngleZeroFromText("-y"), 270);
  for (const char* text : {"", "y", "+z", "1e9", "nan"}) EXPECT_FALSE(AngleZeroFromText(text)) << text;
}

TEST(AngleConvention, TheHeadOfARunningAnimalPointsAheadOnTheMapUnderEachConvention) {
  // An animal that runs in a circle and looks ahead, recorded under every convention.
  const TemporaryFolder folder;
  RecordingWorld world;
  for (const double zero : {0.0, 90.0, 180.0, 270.0, 33.0})
    for (const bool clockwise : {false, true})
      for (const bool up : {false, true}) {
        const AngleConvention convention{zero, clockwise, up};
        std::string text = TextHeader("PosFile", {}, HeaderEntries(convention));
        for (int i = 0; i < 120; ++i) {
          const double turned = i * 3 * std::numbers::pi / 180;
          const double ahead = (up ? -1 : 1) * (i * 3 + 90) - zero;  // from +x towards the y of the angles
          const double angle = std::fmod((clockwise ? -ahead : ahead) + 1080, 360);
          text += std::to_string(i * 33'000) + " " + std::to_string(300 + 100 * std::cos(turned)) + " " +
                  std::to_string(300 + 100 * std::sin(turned)) + " " + std::to_string(angle) + "\n";
        }
        const Track track = TrackWithin(ReadPositions(folder.Put("Pos.p", text)), {0, kFarthestStamp});
        const std::vector<double> travel = DirectionsOfTravel(track, 20);
        for (size_t i = 10; i < 110; ++i)
          ASSERT_NEAR(std::remainder(track.Direction[i] - travel[i], 360), 0, 0.01) << ConventionText(convention);
      }
}

}  // namespace
}  // namespace pallomir
