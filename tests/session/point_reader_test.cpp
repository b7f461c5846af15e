#include "pallomir/session/point_reader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <functional>
#include <limits>

#include "pallomir/files/error.h"
#include "pallomir/files/platform.h"
#include "pallomir/files/text_header.h"
#include "pallomir/session/start_up.h"
#include "support/parameter_files.h"
#include "support/recording_world.h"
#include "support/refusal.h"
#include "support/sessions.h"

namespace pallomir {
namespace {

const std::string kHeader = TextHeader("ParameterFile");
constexpr float kInfinity = std::numeric_limits<float>::infinity();

/// Expects the loaded points to be records first..last of a file of numbered rows.
void ExpectLoaded(const Session& session, int first, int last) {
  const size_t rows = static_cast<size_t>(last - first + 1);
  EXPECT_EQ(std::pair(session.LoadStartRecord, session.LoadEndRecord), std::pair(first, last));
  ASSERT_EQ(session.Points.Rows(), rows);
  int wrong = 0;
  for (size_t i = 0; i < rows; ++i) {
    const int record = first + static_cast<int>(i);
    wrong += session.Points.Stamps()[i] != 1'000'000U + 1000U * static_cast<unsigned>(record);
    for (int p = 0; p < kParameters; ++p) wrong += session.Points.Column(p)[i] != static_cast<float>(1000 * record + p);
    wrong += session.Points.Column(kParameters)[i] != 0;
  }
  EXPECT_EQ(wrong, 0);
  const PointRecord behind = session.Points.Record(rows);
  EXPECT_EQ(behind.Parameters, PointRecord().Parameters);
  EXPECT_EQ(behind.Stamp, 0);
}

struct PointReader : ::testing::Test {
  const TemporaryFolder folder;
  RecordingWorld world;

  /// A session on 20 numbered rows of which 2..12 are loaded.
  Session Loaded() {
    Session session = SessionOn(folder, kHeader + BytesOf(NumberedRows(20)));
    ReadPoints(session, world, 2, 12);
    return session;
  }
};

TEST_F(PointReader, ReadsRowsIntoColumns) {
  Session session = SessionOn(folder, kHeader + BytesOf(NumberedRows(1100)));
  const std::pair<int, int> ranges[] = {{0, 1099}, {3, 8}, {0, 14}, {5, 20}, {17, 33}, {0, 479}, {1, 481}, {100, 1059}};
  for (const auto& [first, last] : ranges) {
    ReadPoints(session, world, first, last);
    ExpectLoaded(session, first, last);
  }
  EXPECT_EQ(world.Log, std::vector<std::string>());
}

TEST_F(PointReader, ReachesRowsBeyondFourGigabytes) {
  const std::string rows = BytesOf(NumberedRows(10));
  Session session = SessionOn(folder, kHeader + rows);
  constexpr int far = 9'000'000;
  std::FILE* file = std::fopen(session.File.Path.c_str(), "r+b");
  ASSERT_TRUE(file);
  std::fseek(file, static_cast<long>(kHeader.size()) + 544L * far, SEEK_SET);
  std::fwrite(rows.data(), 1, rows.size(), file);
  std::fclose(file);
  OpenParameterFile(session, session.File.Path);
  EXPECT_EQ(session.File.RecordCount, far + 10);
  ReadPoints(session, world, far, far + 9);
  EXPECT_EQ(session.Points.Stamps()[9], 1'009'000);
  EXPECT_EQ(session.Points.Column(133)[9], 9133);
}

TEST_F(PointReader, FirstLoadSetsRangesThatIncludeZeroAndLaterLoadsKeepThem) {
  std::vector<FileRow> rows(20);
  for (int r = 0; r < 20; ++r) {
    rows[r].Stamp = 1 + static_cast<uint64_t>(r);
    rows[r].Values[0] = static_cast<float>(r < 10 ? 5 + r : 1'000'000);  // positive
    rows[r].Values[1] = static_cast<float>(-5 - r % 10);                 // negative
    rows[r].Values[2] = static_cast<float>(r % 10 - 4);                  // both
    rows[r].Values[133] = r == 9 ? 250.0F : 1.0F;
  }
  Session session = SessionOn(folder, kHeader + BytesOf(rows));
  ReadPoints(session, world, 0, 9);
  const auto ranges = [&](int p) {  // of the data, then of the axis
    return std::array{session.DataMinimum[p], session.DataMaximum[p], session.AxisMinimum[p], session.AxisMaximum[p]};
  };
  for (const int load : {1, 2}) {
    EXPECT_EQ(ranges(0), (std::array{0.0F, 14.0F, 0.0F, 14.0F})) << load;
    EXPECT_EQ(ranges(1), (std::array{-14.0F, 0.0F, -14.0F, 100.0F})) << load;
    EXPECT_EQ(ranges(2), (std::array{-4.0F, 5.0F, -4.0F, 5.0F})) << load;
    EXPECT_EQ(ranges(133), (std::array{0.0F, 250.0F, 0.0F, 250.0F})) << load;
    EXPECT_EQ(ranges(50), (std::array{0.0F, 0.0F, 0.0F, 100.0F})) << load;
    ReadPoints(session, world, 10, 19);
  }
}

TEST_F(PointReader, EveryLoadTellsWhichParametersAreAllZero) {
  std::vector<FileRow> rows(20);
  for (FileRow& row : rows) row.Stamp = 1'000'000;
  rows[2].Values[3] = -1;
  rows[15].Values[133] = 1;
  rows[4].Values[7] = NAN;
  Session session = SessionOn(folder, kHeader + BytesOf(rows));
  const auto used = [&] {
    std::vector<int> parameters;
    for (int p = 0; p < kParameters; ++p)
      if (!session.AllZero[p]) parameters.push_back(p);
    return parameters;
  };
  ReadPoints(session, world, 0, 9);
  EXPECT_EQ(used(), std::vector{3});
  ReadPoints(session, world, 10, 19);
  EXPECT_EQ(used(), std::vector{133});
  EXPECT_NE(Refusal([&] { ReadPoints(session, world, 10, 20); }), "");
  EXPECT_EQ(used(), std::vector{133});
}

TEST_F(PointReader, LoadsAnIncompleteLastRow) {
  const std::string rows = BytesOf(NumberedRows(8));
  Session session = SessionOn(folder, kHeader + rows.substr(0, 7 * 544 + 300));
  ReadPoints(session, world, 1, 7);
  ASSERT_EQ(session.Points.Rows(), 7);
  EXPECT_EQ(session.Points.Stamps()[6], 1'007'000);
  EXPECT_EQ(session.Points.Column(72)[6], 7072);  // the last complete value
  for (int p = 73; p < kParameters; ++p) EXPECT_EQ(session.Points.Column(p)[6], 0) << p;
  EXPECT_EQ(world.Log, std::vector<std::string>{
                           "Record 7 is incomplete: the file lacks its last 244 bytes, which are taken as 0."});
}

TEST_F(PointReader, KeepsAndCountsRowsWithValuesThatAreNotNumbers) {
  std::vector<FileRow> rows = NumberedRows(1000);
  for (const auto& [row, parameter] : {std::pair{4, 0}, {40, 133}, {40, 7}, {700, 20}, {999, 0}})
    rows[row].Values[parameter] = row == 700 ? -kInfinity : NAN;
  Session session = SessionOn(folder, kHeader + BytesOf(rows));
  ReadPoints(session, world, 10, 999);
  EXPECT_EQ(world.Log,
            std::vector<std::string>{"3 of the loaded records contain values that are not numbers (the first "
                                     "is record 40). They are kept, but not drawn on those parameters."});
  EXPECT_TRUE(std::isnan(session.Points.Column(133)[30]));
  EXPECT_EQ(session.Points.Column(20)[690], -kInfinity);
  EXPECT_EQ(session.DataMinimum[20], 0);
  EXPECT_EQ(session.DataMaximum[133], 999133);
}

TEST_F(PointReader, RefusesARangeAndKeepsWhatWasLoaded) {
  Session session = Loaded();
  const std::string beyond = " cannot be loaded: the file holds records 0 to 19.";
  const std::string few = " cannot be loaded: a range must hold at least 6 records, this one holds ";
  const std::tuple<int, int, std::string> cases[] = {
      {10, 20, "10 to 20" + beyond}, {-1, 8, "-1 to 8" + beyond},   {0, 2147483647, "0 to 2147483647" + beyond},
      {4, 8, "4 to 8" + few + "5."}, {5, 5, "5 to 5" + few + "1."}, {5, 3, "5 to 3" + few + "0."}};
  for (const auto& [first, last, sentence] : cases) {
    EXPECT_EQ(Refusal([&, f = first, l = last] { ReadPoints(session, world, f, l); }), "Records " + sentence);
    ExpectLoaded(session, 2, 12);
  }
}

TEST_F(PointReader, NoticesThatTheFileWasReplaced) {
  const std::string sentence =
      "TT1.Ntt.parms has been replaced since it was opened: it held 20 records after a "
      "header of " +
      std::to_string(kHeader.size()) + " bytes and now holds ";
  const std::string what = " bytes. Check the range, then load again; the points loaded before are still here.";
  const std::tuple<std::string, std::string, int64_t> cases[] = {
      {kHeader + BytesOf(NumberedRows(14)), "14 records after a header of " + std::to_string(kHeader.size()), 14},
      {BytesOf(NumberedRows(20)), "20 records after a header of 0", 20}};
  for (const auto& [bytes, now, records] : cases) {
    Session session = Loaded();
    folder.Put("TT1/TT1.Ntt.parms", bytes);
    EXPECT_EQ(Refusal([&] { ReadPoints(session, world, 4, 18); }), sentence + now + what);
    ExpectLoaded(session, 2, 12);
    EXPECT_EQ(session.File.RecordCount, records);
    ReadPoints(session, world, 4, 13);
    ExpectLoaded(session, 4, 13);
  }
  Session session = Loaded();
  folder.Put("TT1/TT1.Ntt.parms", "nothing of the kind");
  EXPECT_EQ(Refusal([&] { ReadPoints(session, world, 4, 13); }),
            "TT1.Ntt.parms is no longer a parameter file: it has been replaced since it was opened. Put the right file "
            "back and load again; the points loaded before are still here.");
  ExpectLoaded(session, 2, 12);
}

/// What happens to the file, or what else the user does, while a load runs.
struct EventfulWorld : RecordingWorld {
  std::function<void(int pump)> Happens;
  bool PumpEvents() override {
    const bool goOn = RecordingWorld::PumpEvents();
    if (Happens) Happens(Pumps);
    return goOn;
  }
  void StopHeard() override { ++Heard; }
  int Heard = 0;
};

TEST_F(PointReader, RestoresTheLoadedPointsWithTheirMembershipLists) {
  Session session = Loaded();
  session.Points.AddSlot();
  session.Points.Slot(0)[3] = 7;
  session.Points.SetEntered(7, true);
  EventfulWorld impatient;
  impatient.Slow = true;
  impatient.InterruptAt = 1;
  impatient.Happens = [&](int pump) { EXPECT_EQ(PointsLoaded(session), false) << pump; };
  EXPECT_THROW(ReadPoints(session, impatient, 0, 19), Interrupted);
  ExpectLoaded(session, 2, 12);
  EXPECT_EQ(ListOf(session, 3), std::vector{7});
  EXPECT_TRUE(session.Points.Entered(7));
  EXPECT_EQ(impatient.Heard, 1);
  EXPECT_FALSE(impatient.ProgressVisible);
  EXPECT_EQ(impatient.Log, std::vector<std::string>());
}

TEST_F(PointReader, RestoresARangeFromTheFirstRecordOn) {
  Session session = SessionOn(folder, kHeader + BytesOf(NumberedRows(20)));
  ReadPoints(session, world, 0, 12);
  EventfulWorld impatient;
  impatient.Slow = true;
  impatient.InterruptAt = 1;
  EXPECT_THROW(ReadPoints(session, impatient, 0, 19), Interrupted);
  ExpectLoaded(session, 0, 12);
}

TEST_F(PointReader, RefusesALastRowThatIsMissing) {
  // The rows of two blocks; while the first is read, the only row of the second disappears.
  Session session = SessionOn(folder, kHeader + BytesOf(NumberedRows(481)));
  EventfulWorld eventful;
  eventful.Slow = true;
  eventful.Happens = [&](int) { std::filesystem::resize_file(session.File.Path, kHeader.size() + 480 * 544); };
  EXPECT_EQ(Refusal([&] { ReadPoints(session, eventful, 0, 480); }), "TT1.Ntt.parms ended early, at record 480.");
}

TEST_F(PointReader, SaysIfTheLoadedPointsAreGone) {
  const std::string gone = "): no points are loaded now.", was = "The points loaded before could not be read again (";
  const auto cut = [&](size_t rows) {
    std::filesystem::resize_file(folder / "TT1/TT1.Ntt.parms", kHeader.size() + rows * 544);
  };
  // The file at the event pump that stops the load, and the message.
  const std::pair<std::function<void(EventfulWorld&)>, std::string> cases[] = {
      {[&](EventfulWorld&) { folder.Put("TT1/TT1.Ntt.parms", kHeader + BytesOf(std::vector<FileRow>(20))); },
       "TT1.Ntt.parms now holds other spikes there"},
      {[&](EventfulWorld&) { cut(10); }, "TT1.Ntt.parms ended early, at record 10"},
      {[](EventfulWorld& stopped) { stopped.InterruptAt = 2; }, "this was stopped as well"}};
  for (const auto& [happens, why] : cases) {
    Session session = Loaded();
    EventfulWorld eventful;
    eventful.Slow = true;
    eventful.InterruptAt = 1;
    eventful.Happens = [&, what = happens](int pump) {
      if (pump == 1) what(eventful);
    };
    EXPECT_THROW(ReadPoints(session, eventful, 0, 19), Interrupted);
    EXPECT_EQ(eventful.Log, std::vector{was + why + gone});
    EXPECT_FALSE(PointsLoaded(session));
    EXPECT_EQ(session.Points.Rows(), 0);
  }
}

TEST_F(PointReader, RefusesARangeTooLargeForMemoryBeforeAllocating) {
  Session session = Loaded();
  const auto records = static_cast<int32_t>(std::min<uint64_t>(FreeMemory() / 544 + 1000, 1'000'000'000));
  // Rows at the beginning, followed by a hole.
  std::filesystem::resize_file(session.File.Path, kHeader.size() + uint64_t{544} * records);
  Refusal([&] { ReadPoints(session, world, 0, 10); });  // it is not the file that was opened
  const uint64_t before = PeakMemory();
  EXPECT_TRUE(Refusal([&] {
                ReadPoints(session, world, 0, records - 1);
              }).starts_with("There is not enough memory for records 0 to "));
  EXPECT_LT(PeakMemory() - before, 50'000'000);
  ExpectLoaded(session, 2, 12);
}

TEST_F(PointReader, ASecondLoadTakesNoMoreMemoryThanTheFirst) {
  std::vector<FileRow> rows(60'000);
  for (FileRow& row : rows) row.Values.fill(1), row.Stamp = 1;
  Session session = SessionOn(folder, kHeader + BytesOf(rows));
  ReadPoints(session, world, 0, 59'999);
  const uint64_t first = PeakMemory();
  ReadPoints(session, world, 1, 59'999);
  EXPECT_LT(PeakMemory() - first, 8'000'000);
}

TEST_F(PointReader, ShowsProgressAtEveryTenthOfTheRows) {
  Session session = SessionOn(folder, kHeader + BytesOf(NumberedRows(2200)));
  ReadPoints(session, world, 150, 2149);
  std::vector<int> allowed = {0};
  for (int r = 200; r < 2150; r += 200) allowed.push_back(static_cast<int>(std::lround((r - 150) * 32766.0 / 2000)));
  EXPECT_GE(world.Progress.size(), 4);
  for (const int value : world.Progress) EXPECT_EQ(std::count(allowed.begin(), allowed.end(), value), 1) << value;
  EXPECT_GE(world.Progress.back(), 29000);
  EXPECT_FALSE(world.ProgressVisible);
}

TEST_F(PointReader, SkipsAFileOfAnotherNameButEndsTheFirstLoad) {
  Session session = SessionOn(folder, kHeader + BytesOf(NumberedRows(20)));
  session.File.Path = folder.Put("TT1/TT1.Ntt", "");
  ReadPoints(session, world, 0, 19);
  EXPECT_FALSE(PointsLoaded(session));
  EXPECT_FALSE(session.FirstLoad);
}

TEST_F(PointReader, NeedsAVideoSamplingOf30Or60) {
  const Session session = SessionOn(folder, kHeader);
  const auto refusal = [&](const std::string& text) {
    folder.Put("VideoSampling", text);
    return Refusal([&] { CheckVideoSampling(session); });
  };
  for (const char* valid : {"30", "60\r\n", "  \r\n 30 ", "\"30\"", "30,25", "29.97", "6e1"})
    EXPECT_EQ(refusal(valid), "") << valid;
  const std::vector<std::string> invalid = {"",
                                            "\r\n",
                                            "0",
                                            "25",
                                            "-30",
                                            "300",
                                            "30 frames",
                                            "thirty",
                                            "\"",
                                            std::string(1'000'000, '3'),
                                            std::string(1000, '\0')};
  for (const std::string& text : invalid)
    EXPECT_EQ(refusal(text), "END Invalid Video Sampling Rate in Video Sampling File--ABort Program")
        << text.substr(0, 20);
  std::filesystem::remove(folder / "VideoSampling");
  const std::string missing = "END Video Sampling File does not exist--abort program";
  EXPECT_EQ(Refusal([&] { CheckVideoSampling(session); }), missing);
  std::filesystem::create_directory(folder / "VideoSampling");
  EXPECT_EQ(Refusal([&] { CheckVideoSampling(session); }), missing);
}

}  // namespace
}  // namespace pallomir
