#include "pallomir/timesel/event_epochs.h"

#include <gtest/gtest.h>

namespace pallomir {
namespace {

/// "label: start end" of every epoch.
std::vector<std::string> EpochsIn(std::string_view listing) {
  std::vector<std::string> items;
  for (const Epoch& epoch : EpochsOfEvents(listing).Found) items.push_back(EpochItem(epoch));
  return items;
}

using Items = std::vector<std::string>;

TEST(EventEpochs, AreNamedByWhatIsLeftOfTheTexts) {
  const std::pair<const char*, const char*> cases[][2] = {
      {{"maze1 start", "maze1 end"}, {"maze1", ""}},
      {{"Begin sleep", "END SLEEP"}, {"sleep", ""}},
      {{"start recording", "stop recording"}, {"recording", ""}},
      {{"Starting Recording", "Stopping Recording"}, {"Recording", ""}},
      {{"run on", "run off"}, {"run", ""}},
      {{"box_2-started", "ended: box_2"}, {"box_2", ""}},
      {{"START", "finish"}, {"epoch 1", ""}},
      {{"(start) a:b \"c\"", "a:b \"c\" finished."}, {"a b  c", ""}},
      {{"on track start", "on track stop"}, {"on track", ""}},
  };
  for (const auto& [texts, name] : cases)
    EXPECT_EQ(EpochsIn(std::string("100  ") + texts.first + "\r\n200  " + texts.second + "\r\n"),
              Items{std::string(name.first) + ": 100 200"})
        << texts.first;
}

TEST(EventEpochs, TextsThatOnlyContainTheWordsSayNothing) {
  for (const char* text : {"TTL Input on AcqSystem1_0 board 0 port 0 value (0x0001).", "restart", "weekend",
                           "the start of it", "startled", "", "  ", "..."})
    EXPECT_TRUE(EpochsIn(std::string("100  ") + text + "\r\n200  end\r\n").empty()) << text;
  EXPECT_TRUE(EpochsIn("").empty());
  EXPECT_TRUE(EpochsIn("Only the first million events are listed: the file holds more start\r\n").empty());
}

TEST(EventEpochs, MayLieWithinOneAnotherAndFollowInAnyOrder) {
  EXPECT_EQ(EpochsIn("400  recording stop\r\n100  recording start\r\n200  run start\r\n300  Run stop\r\n"
                     "320  run start\r\n350  run stop\r\n"),
            (Items{"recording: 100 400", "run: 200 300", "run: 320 350"}));
}

TEST(EventEpochs, AStartWithoutAnEndRunsToTheNextStartOrTheLastEvent) {
  const EventEpochs epochs = EpochsOfEvents(
      "100  a start\r\n150  light\r\n200  b start\r\n250  c end\r\n300  b start\r\n400  b end\r\n500  d start\r\n"
      "600  light\r\n0  \r\n");
  Items items;
  for (const Epoch& epoch : epochs.Found) items.push_back(EpochItem(epoch));
  EXPECT_EQ(items, (Items{"a: 100 200", "b: 200 300", "b: 300 400", "d: 500 600"}));
  EXPECT_EQ(epochs.WithoutEnd, (Items{"a", "b", "d"}));
  EXPECT_EQ(epochs.Unused, 1);
  // Nothing follows a start that is the last event.
  EXPECT_EQ(EpochsIn("100  start\r\n0  \r\n"), Items{});
  EXPECT_EQ(EpochsOfEvents("100  start\r\n0  \r\n").Unused, 1);
}

TEST(FillFromEvents, FillsEmptyRowsOnlyAndSaysWhatItDid) {
  EpochTable table;
  table[0] = {"mine", "1", "2"};
  table[2] = {"", "", "7"};
  const char* listing =
      "10  a start\r\n20  a end\r\n30  b start\r\n40  x end\r\n50  light\r\n60  c on\r\n70  c off\r\n";
  EXPECT_EQ(
      FillFromEvents(table, listing),
      "3 epochs were filled in. No event ends b: taken up to the next start, or the last event. 1 event without a "
      "counterpart left out.");
  EXPECT_EQ(ItemsOf(table), (Items{"mine: 1 2", "a: 10 20", ":  7", "b: 30 60", "c: 60 70"}));
  EXPECT_EQ(FillFromEvents(table, "10  other start\r\n20  other end\r\n80  d start\r\n90  d end\r\n"),
            "1 epoch was filled in. 1 is in the table already.");
  EXPECT_EQ(table[5].Label, "d");
  for (Epoch& row : table)
    if (row.Label.empty()) row.Label = "kept";
  EXPECT_EQ(FillFromEvents(table, "100  e start\r\n110  e end\r\n"), "0 epochs were filled in. 1 found no empty row.");
  EXPECT_EQ(FillFromEvents(table, "100  light\r\n"),
            "No event says where a part begins (\"maze1 start\", \"Begin sleep\", \"run on\").");
}

}  // namespace
}  // namespace pallomir
