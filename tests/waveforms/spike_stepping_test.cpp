#include "pallomir/waveforms/spike_stepping.h"

#include <gtest/gtest.h>

#include "support/sessions.h"

namespace pallomir {
namespace {

ClusterTicks Ticked(std::initializer_list<int> clusters) {
  ClusterTicks ticks{};
  for (const int c : clusters) ticks[c] = true;
  return ticks;
}

/// Records 1000..1005, with the membership lists {}, {3}, {5, 2}, {2}, {}, {3, 5}.
Session SixSpikes() {
  Session session = SessionWith({{1, 1}, {2, 2}, {3, 3}, {4, 4}, {5, 5}, {6, 6}});
  session.LoadStartRecord = 1000;
  session.LoadEndRecord = 1005;
  const std::vector<std::vector<int16_t>> lists{{}, {3}, {5, 2}, {2}, {}, {3, 5}};
  while (session.Points.SlotsInUse() < 2) session.Points.AddSlot();
  for (size_t i = 0; i < lists.size(); ++i)
    for (size_t k = 0; k < lists[i].size(); ++k) session.Points.Slot(static_cast<int>(k))[i] = lists[i][k];
  return session;
}

TEST(SpikeStepping, ShowsTheTickedSpikesForwardsAndBackwards) {
  const Session session = SixSpikes();
  struct Case {
    std::initializer_list<int> Ticks;
    std::vector<ShownSpike> Shown;
  };
  for (const Case& c :
       {Case{{}, {}}, Case{{4, 31, 40}, {}}, Case{{3}, {{1001, 3}, {1005, 3}}}, Case{{0}, {{1000, 0}, {1004, 0}}},
        Case{{2, 5}, {{1002, 5}, {1003, 2}, {1005, 5}}}, Case{{2}, {{1002, 2}, {1003, 2}}},
        Case{{0, 2, 3, 5}, {{1000, 0}, {1001, 3}, {1002, 5}, {1003, 2}, {1004, 0}, {1005, 3}}}}) {
    const ClusterTicks ticks = Ticked(c.Ticks);
    int32_t counter = kBeforeFirstSpike;
    std::vector<ShownSpike> forward, back;
    while (const auto shown = StepForward(session, ticks, counter)) {
      EXPECT_EQ(shown->Record, 1000 + counter);
      forward.push_back(*shown);
    }
    EXPECT_EQ(forward, c.Shown);
    EXPECT_EQ(counter, 5) << "it stands at the last spike";
    EXPECT_FALSE(StepForward(session, ticks, counter));

    counter = 6;  // so that the last spike is also shown
    while (const auto shown = StepBack(session, ticks, counter)) back.insert(back.begin(), *shown);
    EXPECT_EQ(back, c.Shown);
    EXPECT_EQ(counter, 0) << "it stops at the first spike";
    EXPECT_FALSE(StepBack(session, ticks, counter));
  }
}

TEST(SpikeStepping, StaysWhereItIsIfThereIsNothingToShow) {
  const ClusterTicks all = Ticked({0, 2, 3, 5});
  int32_t counter = kBeforeFirstSpike;
  EXPECT_FALSE(StepBack(SixSpikes(), all, counter));
  EXPECT_EQ(counter, -1);
  EXPECT_FALSE(StepForward(Session(), all, counter)) << "nothing is loaded";
  EXPECT_EQ(counter, -1);
  counter = 400;  // of a longer range that was loaded before
  EXPECT_FALSE(StepForward(SixSpikes(), all, counter));
  EXPECT_EQ(StepBack(SixSpikes(), all, counter), (ShownSpike{1005, 3}));
  // No membership list is in use: no spike is in a cluster.
  counter = kBeforeFirstSpike;
  const Session plain = SessionWith({{1, 1}, {2, 2}});
  EXPECT_EQ(StepForward(plain, all, counter), (ShownSpike{plain.LoadStartRecord, 0}));
}

}  // namespace
}  // namespace pallomir
