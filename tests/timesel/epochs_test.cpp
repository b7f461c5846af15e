#include "pallomir/timesel/epochs.h"

#include <gtest/gtest.h>

#include "pallomir/files/text_header.h"
#include "pallomir/timesel/epoch_selection.h"
#include "support/parameter_files.h"
#include "support/recording_world.h"
#include "support/refusal.h"
#include "support/sessions.h"

namespace pallomir {
namespace {

TEST(EpochItems, AreReadAsTheyAreWritten) {
  const std::tuple<std::string, Epoch> cases[] = {{"run: 100 200", {"run", "100", "200"}},
                                                  {"run 2:   100    200  ", {"run 2", "100", "200"}},
                                                  {": 1 2", {"", "1", "2"}},
                                                  {"sleep: 5 ", {"sleep", "5", ""}},
                                                  {"sleep:  5", {"sleep", "5", ""}},
                                                  {"a:b: 1 2", {"a", "b:", "1"}},
                                                  {"no colon", {"no colon", "", ""}},
                                                  {"", {"", "", ""}},
                                                  {"glued:1 2 3", {"glued", "1", "2"}}};
  for (const auto& [item, epoch] : cases) {
    const Epoch read = EpochOfItem(item);
    EXPECT_EQ(std::tie(read.Label, read.Start, read.End), std::tie(epoch.Label, epoch.Start, epoch.End)) << item;
  }
  EpochTable table;
  table[3] = {"run", "1", "2"};
  table[5] = {"", "", "7"};
  table[29] = {"x", "", ""};
  EXPECT_EQ(ItemsOf(table), (std::vector<std::string>{"run: 1 2", ":  7", "x:  "}));
  EXPECT_EQ(TableOf(ItemsOf(table))[0].End, "2");
  EXPECT_EQ(TableOf(std::vector<std::string>(30, "a: 1 2"))[29].End, "2");
  EXPECT_EQ(Refusal([] { TableOf(std::vector<std::string>(31, "a: 1 2")); }),
            "There are 31 epochs, but room for only 30.");
}

struct EpochSearch : ::testing::Test {
  const TemporaryFolder folder;
  RecordingWorld world;
  EpochTable table;

  Session Recording(const std::vector<uint64_t>& stamps) {
    std::vector<FileRow> rows = NumberedRows(static_cast<int>(stamps.size()));
    for (size_t r = 0; r < rows.size(); ++r) rows[r].Stamp = stamps[r];
    return SessionOn(folder, TextHeader("ParameterFile") + BytesOf(rows));
  }
  static std::array<double, 4> Found(const Session& session, size_t row) {
    return {session.EpochStartTimestamp[row], static_cast<double>(session.EpochStartRecord[row]),
            session.EpochEndTimestamp[row], static_cast<double>(session.EpochEndRecord[row])};
  }
};

TEST_F(EpochSearch, FindsTheFirstAndTheLastSpike) {
  // The third timestamp is out of order: the scan follows the records.
  Session session = Recording({100, 200, 150, 300, 400, 400, 500});
  const std::tuple<Epoch, std::array<double, 4>> cases[] = {
      {{"equal counts", "200", "400"}, {200, 1, 400, 5}},
      {{"between", "120", "390.5"}, {200, 1, 300, 3}},
      {{"all", "0", "1e9"}, {100, 0, 500, 6}},
      {{"end before the first spike", "250", "260"}, {300, 3, 300, 3}},
      {{"end before the start", "250", "10"}, {300, 3, 300, 3}},
      {{"last spike", "500", "100"}, {500, 6, 500, 6}},
      {{"no spike at or after the start", "501", "600"}, {0, 0, 500, 6}},
      {{"disorder ends it early", "100", "199"}, {100, 0, 100, 0}}};
  size_t row = 0;
  for (const auto& [epoch, found] : cases) table[row++] = epoch;
  FindEventIDs(session, world, table);
  row = 0;
  for (const auto& [epoch, found] : cases) EXPECT_EQ(Found(session, row++), found) << epoch.Label;
  ASSERT_EQ(world.Log.size(), kEpochs);
  EXPECT_EQ(world.Log[0], "equal counts: Timestamps 200, 400 Event IDs 1, 5");
  EXPECT_EQ(world.Log[29], ": Timestamps 0, 0 Event IDs 0, 0");
}

TEST_F(EpochSearch, LeavesIncompleteRowsAsTheyWere) {
  Session session = Recording({100, 200, 300});
  session.EpochStartRecord.fill(7);
  session.EpochEndRecord.fill(9);
  table[0] = {"", "100", "200"};
  table[1] = {"no end", "100", ""};
  table[2] = {"no times", "", ""};
  table[3] = {"beyond", "1000", "no number, but not asked for"};
  FindEventIDs(session, world, table);
  for (const size_t row : {0U, 1U, 2U, 4U}) EXPECT_EQ(Found(session, row), (std::array<double, 4>{0, 7, 0, 9})) << row;
  EXPECT_EQ(Found(session, 3), (std::array<double, 4>{0, 7, 300, 2}));
  EXPECT_EQ(world.Log[1], "no end: Timestamps 0, 0 Event IDs 7, 9");
}

TEST_F(EpochSearch, SaysWhichTextIsNotANumber) {
  Session session = Recording({100, 200, 300});
  table[2] = {"good", "100", "200"};
  table[4] = {"bad", "100", "2oo"};
  EXPECT_EQ(Refusal([&] { FindEventIDs(session, world, table); }), "Epoch 4: the end \"2oo\" is not a number.");
  EXPECT_EQ(session.EpochEndRecord[2], 1);
  table[1] = {"worse", "noon", "200"};
  EXPECT_EQ(Refusal([&] { FindEventIDs(session, world, table); }), "Epoch 1: the start \"noon\" is not a number.");
  Session empty = Recording({});
  EXPECT_EQ(Refusal([&] { FindEventIDs(empty, world, table); }), "The parameter file holds no spikes.");
}

TEST_F(EpochSearch, StopsBetweenRows) {
  Session session = Recording({100, 200, 300});
  for (Epoch& epoch : table) epoch = {"all", "0", "1000"};
  world.InterruptAt = 4;  // one pump while reading
  EXPECT_THROW(FindEventIDs(session, world, table), Interrupted);
  EXPECT_EQ(session.EpochEndRecord[2], 2);
  EXPECT_EQ(session.EpochEndRecord[3], 0);
}

EpochChoice Chosen(std::string start, std::string end) {
  return {true, "t" + start, "t" + end, start, end};
}

TEST(EpochSelection, RefusesRowsThatOverlap) {
  const std::tuple<EpochChoice, std::string> cases[] = {
      {Chosen("150", "300"), "ERROR: Epoch overlaps with previously selected epoch"},
      {Chosen("50", "100"), "ERROR: Epoch overlaps with previously selected epoch"},
      {Chosen("200", "200"), "ERROR: Epoch overlaps with previously selected epoch"},
      {Chosen("50", "400"), ""},  // only its two ends are checked
      {Chosen("201", "300"), ""},
      {Chosen("", "300"), "ERROR: Cannot choose an epoch with no times defined"},
      {Chosen("5", ""), "ERROR: Cannot choose an epoch with no times defined"},
      {Chosen("x", "7"), "Epoch 7: the start record \"x\" is not a number."}};
  for (const auto& [choice, refusal] : cases) {
    EpochChoices rows;
    rows[2] = Chosen("100", "200");
    rows[3] = Chosen("150", "160");
    rows[3].Selected = false;
    rows[4] = Chosen("", "");
    rows[7] = choice;
    EXPECT_EQ(Refusal([&] { CheckSelection(rows, 7); }), refusal) << choice.StartID << ".." << choice.EndID;
  }
}

TEST(EpochSelection, ChecksTheFirstAndTheLastRowToo) {
  for (const auto& [early, late] : {std::pair{0, 29}, {29, 0}}) {
    EpochChoices rows;
    rows[early] = Chosen("100", "200");
    rows[late] = Chosen("500", "600");
    EXPECT_EQ(RangeOfSelected(rows).StartRecord, 100) << early;
    EXPECT_EQ(RangeOfSelected(rows).EndRecord, 600) << late;
    rows[7] = Chosen("150", "300");
    EXPECT_EQ(Refusal([&] { CheckSelection(rows, 7); }), "ERROR: Epoch overlaps with previously selected epoch")
        << early;
  }
}

TEST(EpochSelection, SpansFromTheSmallestStartToTheLargestEnd) {
  EpochChoices rows;
  EXPECT_EQ(RangeOfSelected(rows).EndRecord, 0);
  rows[9] = Chosen("500", "600");
  rows[12] = Chosen("100", "200");
  rows[0] = Chosen("5", "900");
  rows[0].Selected = false;
  const EpochRange range = RangeOfSelected(rows);
  EXPECT_EQ(std::tuple(range.StartRecord, range.EndRecord, range.StartTime, range.EndTime),
            std::tuple(100, 600, "t100", "t600"));
  rows[9].EndID = "6oo";
  EXPECT_EQ(Refusal([&] { RangeOfSelected(rows); }), "Epoch 9: the end record \"6oo\" is not a number.");
}

}  // namespace
}  // namespace pallomir
