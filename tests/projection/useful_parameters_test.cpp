#include "pallomir/projection/useful_parameters.h"

#include <gtest/gtest.h>

namespace pallomir {
namespace {

/// A session in which only these parameters are in use.
Session SessionUsing(const std::vector<int>& used) {
  Session session;
  session.AllZero.fill(true);
  for (const int p : used) session.AllZero[p] = false;
  return session;
}

TEST(UsefulParameters, ZerosAreSteppedOver) {
  const Session session = SessionUsing({0, 3, 133});
  EXPECT_EQ(NextUseful(session, 0, 1), 3);
  EXPECT_EQ(NextUseful(session, 50, 1), 133);
  EXPECT_EQ(NextUseful(session, 50, -1), 3);
  EXPECT_EQ(NextUseful(session, 133, 1), 133);
  EXPECT_EQ(NextUseful(session, 0, -1), 0);
}

TEST(UsefulParameters, PairsFollowOneAnotherThroughTheFamilies) {
  // Wires 1, 2 and 4 of MPeak, one wire of PreVal, two of Energy (the first and the last) and of Valley.
  Session session = SessionUsing({0, 1, 3, kPreVal, kSpikeID, kEnergy, kEnergy + 31, kPosX, kValley + 2, kValley + 3});
  const std::vector<ParameterPair> pairs = {
      {0, 1}, {0, 3}, {1, 3}, {kEnergy, kEnergy + 31}, {kValley + 2, kValley + 3}};
  const auto show = [&](ParameterPair pair) {
    session.XParameter = static_cast<int16_t>(pair.X);
    session.YParameter = static_cast<int16_t>(pair.Y);
  };
  for (size_t k = 0; k < pairs.size(); ++k) {
    show(pairs[k]);
    EXPECT_EQ(NextPair(session, 1), pairs[(k + 1) % pairs.size()]) << k;
    EXPECT_EQ(NextPair(session, -1), pairs[(k + pairs.size() - 1) % pairs.size()]) << k;
  }
  const std::pair<ParameterPair, ParameterPair> elsewhere[] = {{{1, 0}, {0, 1}},
                                                               {{0, 2}, {0, 1}},
                                                               {{kPosX, kPosY}, {0, 1}},
                                                               {{0, kEnergy}, {0, 1}},
                                                               {{kEnergy + 31, kEnergy}, pairs[3]},
                                                               {{kPreVal, kPreVal + 1}, pairs[3]},
                                                               {{kValley, kValley}, pairs[4]}};
  for (const auto& [from, to] : elsewhere) {
    show(from);
    EXPECT_EQ(NextPair(session, 1), to) << from.X << ", " << from.Y;
  }
  session = SessionUsing({0, kPreVal, kPosX, kPosY});
  EXPECT_FALSE(NextPair(session, 1));
}

}  // namespace
}  // namespace pallomir
