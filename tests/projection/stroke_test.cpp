#include "pallomir/projection/stroke.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace pallomir {
namespace {

constexpr int kSide = 20;

struct Picture {
  std::vector<uint32_t> Pixels = std::vector<uint32_t>(size_t{kSide} * kSide, 0);
  Canvas Surface{Pixels.data(), kSide, kSide, kSide};
  uint32_t At(int x, int y) const { return Pixels[static_cast<size_t>(y) * kSide + x]; }
  /// The total ink, in pixels.
  double Ink() const {
    double sum = 0;
    for (const uint32_t pixel : Pixels) sum += (pixel & 0xFFU) / 255.0;
    return sum;
  }
};

constexpr uint32_t kWhite = 0xFFFFFFFF;

TEST(Stroke, ALineCoversItsBandAndNoMore) {
  Picture level;
  Stroke(level.Surface, {2.5, 5.5, 12.5, 5.5}, 1, kWhite);
  for (int x = 0; x < kSide; ++x) EXPECT_EQ(level.At(x, 5), x >= 2 && x <= 12 ? kWhite : 0U) << x;
  EXPECT_NEAR(level.Ink(), 11, 1e-9);
  for (const Segment& line : {Segment{3, 3, 15, 9}, Segment{15, 9, 3, 3}, Segment{3, 3, 9, 15}, Segment{9, 15, 3, 3}}) {
    Picture slanted;
    Stroke(slanted.Surface, line, 2, kWhite);
    EXPECT_NEAR(slanted.Ink(), 2 * (std::hypot(12, 6) + 2), 1.5) << "width by length, with its square ends";
    EXPECT_GT(slanted.At(static_cast<int>((line.X0 + line.X1) / 2), static_cast<int>((line.Y0 + line.Y1) / 2)), 0U);
  }
  Picture dot;
  Stroke(dot.Surface, {7.5, 7.5, 7.5, 7.5}, 1, kWhite);
  EXPECT_EQ(dot.At(7, 7), kWhite) << "an edge of no length";
}

TEST(Stroke, TheVisiblePartOfALineDoesNotDependOnItsLength) {
  Picture across;
  Stroke(across.Surface, {-10, -5, 30, 25}, 1.3, kWhite);
  for (const double far : {1e3, 1e6, 1e9}) {
    Picture farther;
    Stroke(farther.Surface, {10 - 4 * far, 10 - 3 * far, 10 + 4 * far, 10 + 3 * far}, 1.3, kWhite);
    for (size_t i = 0; i < across.Pixels.size(); ++i)
      EXPECT_NEAR(across.Pixels[i] & 0xFFU, farther.Pixels[i] & 0xFFU, 2) << far;
  }
}

TEST(Stroke, LinesOffTheSurfaceOrNotNumbersDrawNothing) {
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN(), kInfinity = std::numeric_limits<double>::infinity();
  for (const Segment& line : {Segment{-9, -5, 40, -5}, Segment{25, -3, 60, 15}, Segment{-1e38, 50, 1e38, 50},
                              Segment{kNan, 3, 5, 5}, Segment{3, 3, kInfinity, 5}}) {
    Picture picture;
    Stroke(picture.Surface, line, 1.3, kWhite);
    EXPECT_EQ(picture.Ink(), 0) << line.X0;
  }
}

}  // namespace
}  // namespace pallomir
