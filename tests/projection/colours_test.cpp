#include "pallomir/projection/colours.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <set>
#include <vector>

#include "support/sessions.h"

namespace pallomir {
namespace {

TEST(Colours, OnlySeventeenAndTwentyFiveShareOne) {
  const Session session = SessionWith({});
  EXPECT_EQ(session.Colours[1], 0x0000FF) << "red in the low byte";
  EXPECT_EQ(session.Colours[17], session.Colours[25]);
  EXPECT_EQ(std::set<Colour>(session.Colours.begin(), session.Colours.end()).size(), 30);
}

TEST(Colours, ClustersShownAsZeroFollowTheBackground) {
  Session session = SessionWith({});
  session.DisplayAsZero[4] = true;
  for (const bool white : {true, false}) {
    session.WhiteBackground = white;
    BuildColourTable(session);
    EXPECT_EQ(session.Colours[0], white ? 0x000000 : 0xFFFFFF);
    EXPECT_EQ(session.Colours[4], session.Colours[0]);
    EXPECT_EQ(session.ReferenceColours[0], 0xFFFFFF);
    EXPECT_EQ(session.ReferenceColours[4], 0x00FFFF);
  }
}

using Triple = std::array<double, 3>;
using Matrix = std::array<Triple, 3>;

Triple Times(const Matrix& matrix, const Triple& of) {
  Triple product{};
  for (int row = 0; row < 3; ++row)
    for (int k = 0; k < 3; ++k) product[row] += matrix[row][k] * of[k];
  return product;
}

/// CIE L*a*b* of a colour after a change of its linear red, green and blue.
Triple LabOf(Colour colour, const Matrix& seen) {
  constexpr Matrix kXyz = {{{0.4124564 / 0.95047, 0.3575761 / 0.95047, 0.1804375 / 0.95047},
                            {0.2126729, 0.7151522, 0.0721750},
                            {0.0193339 / 1.08883, 0.1191920 / 1.08883, 0.9503041 / 1.08883}}};
  Triple linear;
  for (int k = 0; k < 3; ++k) {
    const double level = static_cast<double>(colour >> 8 * k & 0xFF) / 255;
    linear[k] = level <= 0.04045 ? level / 12.92 : std::pow((level + 0.055) / 1.055, 2.4);
  }
  linear = Times(seen, linear);
  for (double& level : linear) level = std::clamp(level, 0.0, 1.0);
  Triple f = Times(kXyz, linear);
  for (double& value : f) value = value > 0.008856 ? std::cbrt(value) : 7.787 * value + 16.0 / 116;
  return {116 * f[1] - 16, 500 * (f[0] - f[1]), 200 * (f[1] - f[2])};
}

/// The smallest distance between two colours, as seen by the eyes of `seen`.
double SmallestDistance(const Session& session, const Matrix& seen) {
  double smallest = 1e9;
  for (int a = 1; a <= kClusters; ++a)
    for (int b = 0; b < a; ++b) {
      const Triple one = LabOf(session.ReferenceColours[a], seen), other = LabOf(session.ReferenceColours[b], seen);
      smallest = std::min(smallest, std::hypot(one[0] - other[0], one[1] - other[1], one[2] - other[2]));
    }
  return smallest;
}

TEST(Colours, SafeOnesDifferForAllEyes) {
  // Machado, Oliveira and Fernandes 2009, full severity.
  const Matrix eyes[] = {
      {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}},
      {{{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}},
      {{{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}}};
  Session session = SessionWith({});
  EXPECT_LT(SmallestDistance(session, eyes[1]), 3) << "the usual colours";
  session.SafeColours = true;
  BuildColourTable(session);
  for (const Matrix& seen : eyes) EXPECT_GT(SmallestDistance(session, seen), 13);
}

TEST(Colours, SwitchesDecideWhatIsShownInWhateverOrder) {
  enum Switch { kAsZero, kHideZero, kDisable };
  std::vector<int> order = {kAsZero, kHideZero, kDisable};
  do {
    Session session = SessionWith({});
    const auto flip = [&](int which) {
      if (which == kAsZero) session.DisplayAsZero[3] = !session.DisplayAsZero[3];
      if (which == kHideZero) session.Display[0] = !session.Display[0];
      if (which == kDisable) session.DisplayDisabled[3] = !session.DisplayDisabled[3];
      ShowClusters(session);
      EXPECT_EQ(session.Display[3], !session.DisplayDisabled[3] && (session.Display[0] || !session.DisplayAsZero[3]));
      EXPECT_TRUE(session.Display[4]) << "another cluster is left alone";
    };
    for (const int which : order) flip(which);
    for (const int which : order) flip(which);
    EXPECT_TRUE(session.Display[3]);
  } while (std::next_permutation(order.begin(), order.end()));
}

}  // namespace
}  // namespace pallomir
