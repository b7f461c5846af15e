#include "projection/colours.h"

#include <gtest/gtest.h>

#include <set>

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

TEST(Colours, ShowingAsZeroHidesWithClusterZeroAndIsTakenBackWhole) {
  for (const bool zeroShown : {true, false})
    for (const bool disabled : {true, false}) {
      Session session = SessionWith({});
      session.Display[0] = zeroShown;
      session.Display[3] = !disabled;
      SetDisplayAsZero(session, 3, true, disabled);
      EXPECT_EQ(session.Colours[3], session.Colours[0]);
      EXPECT_EQ(session.Display[3], zeroShown && !disabled);
      SetDisplayAsZero(session, 3, false, disabled);
      EXPECT_EQ(session.Colours[3], 0xFF8080);
      EXPECT_EQ(session.Display[3], !disabled);
      EXPECT_FALSE(session.DisplayAsZero[3]);
    }
}

}  // namespace
}  // namespace pallomir
