#include "pallomir/science/behaviour/grid_score.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "pallomir/science/behaviour/spatial_autocorrelation.h"

namespace pallomir {
namespace {

constexpr double kDegree = std::numbers::pi / 180;

/// A sum of plane waves whose crests form fields `spacing` bins apart; three waves make a hexagonal map, two a square
/// one. `tilt` in degrees, counter-clockwise.
Map Waves(int waves, double spacing, double tilt, double stretch = 1) {
  Map map{40, 40, 0, 0, 10, {}};
  const double step = waves == 3 ? 60 : 90, length = waves == 3 ? spacing * std::sqrt(3) / 2 : spacing;
  for (int row = 0; row < 40; ++row)
    for (int column = 0; column < 40; ++column) {
      double sum = 0;
      for (int k = 0; k < waves; ++k) {
        const double angle = (tilt + (waves == 3 ? 30 : 0) + k * step) * kDegree;
        sum += std::cos(2 * std::numbers::pi / length *
                        ((column - 19.5) / stretch * std::cos(angle) - (row - 19.5) * std::sin(angle)));
      }
      map.Values.push_back(std::exp(sum));
    }
  return map;
}

GridMeasures Of(const Map& map) {
  return GridAnalysis(map.Rows, map.Columns).MeasuresOf(SpatialAutocorrelation(map), 4);
}

TEST(GridScore, TellsHexagonsFromSquares) {
  for (const double tilt : {0.0, 7.0, -20.0}) {
    EXPECT_GT(Of(Waves(3, 14, tilt)).Score.Value, 1.2) << tilt;
    EXPECT_LT(Of(Waves(2, 14, tilt)).Score.Value, 0) << tilt;
  }
}

TEST(GridScore, MeasuresTheGrid) {
  for (const double tilt : {0.0, 7.0, -20.0}) {
    const GridMeasures grid = Of(Waves(3, 14, tilt));
    EXPECT_NEAR(grid.Spacing.Value, 14 * 2.5, 0.3) << tilt;
    EXPECT_NEAR(grid.Orientation.Value, tilt, 0.5);
    EXPECT_NEAR(grid.Ellipticity.Value, 1, 0.02);
  }
  EXPECT_NEAR(Of(Waves(3, 12, 0, 1.2)).Ellipticity.Value, 1.2, 0.03);
}

TEST(GridScore, SaysWhyItIsNotKnown) {
  EXPECT_FALSE(Of(Map{40, 40, 0, 0, 10, std::vector<double>(1600, 2)}).Score.Known()) << "flat";
  EXPECT_FALSE(Of(Map{}).Score.Known());
  Map small = Waves(3, 14, 0);
  small.Rows = 6;
  small.Values.resize(240);
  EXPECT_FALSE(Of(small).Score.Known()) << "no ring of 10 cm fits beside the central peak";
}

}  // namespace
}  // namespace pallomir
