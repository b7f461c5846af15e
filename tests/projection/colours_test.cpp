#include "pallomir/projection/colours.h"

#include <gtest/gtest.h>

#include <algorithm>
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
