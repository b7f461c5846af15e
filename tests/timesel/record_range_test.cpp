#include "pallomir/timesel/record_range.h"

#include <gtest/gtest.h>

#include <cmath>

#include "pallomir/files/bytes.h"
#include "pallomir/files/error.h"
#include "pallomir/files/text_header.h"
#include "pallomir/files/timestamp.h"
#include "support/parameter_files.h"
#include "support/recording_world.h"
#include "support/refusal.h"
#include "support/sessions.h"

namespace pallomir {
namespace {

TEST(TimestampFromBytes, SumsAllEightBytesUnsigned) {
  for (const uint64_t stamp : {1ULL, 0x0102030405060708ULL, 1'700'000'000'123'456ULL, (1ULL << 53) - 1, ~0ULL}) {
    unsigned char bytes[8];
    StoreLittleEndian(bytes, stamp);
    EXPECT_EQ(TimestampFromBytes(bytes), static_cast<double>(stamp));
  }
}

struct RecordRange : ::testing::Test {
  const TemporaryFolder folder;
  RecordingWorld world;
  const std::string warning = "WARNING: Last spike in data file occurs before end time";

  Session Recording(const std::vector<uint64_t>& stamps) {
    std::vector<FileRow> rows = NumberedRows(static_cast<int>(stamps.size()));
    for (size_t r = 0; r < rows.size(); ++r) rows[r].Stamp = stamps[r];
    return SessionOn(folder, TextHeader("ParameterFile") + BytesOf(rows));
  }
};

TEST_F(RecordRange, TimesSnapToSpikes) {
  const Session session = Recording({100, 200, 200, 300, 250, 400});
  const std::tuple<double, RecordTime, RecordTime> cases[] = {
      {100, {0, 100}, {0, 100}},    // equal to a timestamp: that spike
      {150, {1, 200}, {0, 100}},    // between two
      {200, {1, 200}, {2, 200}},    // equal timestamps: the first of them, the last of them
      {260, {3, 300}, {2, 200}},    // out of time order: the first record at which the time is passed
      {399.9, {5, 400}, {4, 250}},  // fractions
  };
  for (const auto& [typed, start, end] : cases) {
    const auto first = RecordAtStart(session, world, typed), last = RecordAtEnd(session, world, typed);
    EXPECT_EQ(std::pair(first->Record, first->Time), std::pair(start.Record, start.Time)) << typed;
    EXPECT_EQ(std::pair(last->Record, last->Time), std::pair(end.Record, end.Time)) << typed;
  }
  EXPECT_EQ(RecordAtStart(session, world, -5)->Record, 0);
  EXPECT_TRUE(world.Boxes.empty());
}

TEST_F(RecordRange, TimesBeyondTheLastSpike) {
  const Session session = Recording({100, 200, 300});
  for (const double typed : {300.0, 1e99}) {
    world.Boxes.clear();
    EXPECT_EQ(RecordAtEnd(session, world, typed)->Record, 2);
    EXPECT_EQ(world.Boxes, std::vector{warning});
  }
  for (const double typed : {300.5, 1e99, double{NAN}})
    EXPECT_EQ(Refusal([&] { RecordAtStart(session, world, typed); }), "Start time is out of file range");
}

TEST_F(RecordRange, EndBeforeTheFirstSpikeIsRefused) {
  EXPECT_EQ(Refusal([&] {
              RecordAtEnd(Recording({100, 200, 300}), world, 99);
            }),
            "Record -1 is not in TT1.Ntt.parms: the file holds records 0 to 2.");
}

TEST_F(RecordRange, ARecordingWithoutSpikesHasNoTimes) {
  const Session session = Recording({});
  EXPECT_EQ(Refusal([&] { RecordAtStart(session, world, 0); }), "Start time is out of file range");
  EXPECT_EQ(Refusal([&] { RecordAtEnd(session, world, 0); }),
            "Record -1 is not in TT1.Ntt.parms: the file holds none.");
}

TEST_F(RecordRange, RecordsHaveTimes) {
  const Session session = Recording({100, 1'700'000'000'123'456, 300});
  EXPECT_EQ(TimeOfRecord(session, 1), 1'700'000'000'123'456.0);
  EXPECT_EQ(TimeOfRecord(session, 2), 300);
  EXPECT_EQ(TimeOfRecord(session, -0.0009), 100) << "the offset is rounded to a byte, that of record 0";
  for (const double record : {-0.001, -0.4, -1.0, 3.0, 1e15, 1e99, -1e99, double{NAN}, double{INFINITY}})
    EXPECT_NE(Refusal([&] { TimeOfRecord(session, record); }), "") << record;
  EXPECT_EQ(Refusal([&] { TimeOfRecord(session, -0.4); }),
            "Record -0.4 is not in TT1.Ntt.parms: the file holds records 0 to 2.");
  EXPECT_EQ(Refusal([&] { TimeOfRecord(session, 3); }),
            "Record 3 is not in TT1.Ntt.parms: the file holds records 0 to 2.");
}

TEST_F(RecordRange, LongFilesAreScannedToTheirEndAndCanBeStopped) {
  std::vector<uint64_t> stamps(10'000);
  for (size_t r = 0; r < stamps.size(); ++r) stamps[r] = 10 * r;
  stamps[0] = 1;
  const Session session = Recording(stamps);
  for (const int64_t record : {4095, 4096, 4097, 9999})
    EXPECT_EQ(RecordAtStart(session, world, 10.0 * static_cast<double>(record) - 1)->Record, record);
  // Progress is shown, and the scan can be stopped.
  world.Slow = true;
  EXPECT_NE(Refusal([&] { RecordAtStart(session, world, 1e9); }), "");
  ASSERT_FALSE(world.Progress.empty());
  EXPECT_TRUE(world.Progress.back() > 20000 && !world.ProgressVisible);
  world.InterruptAt = world.Pumps + 3;
  EXPECT_THROW(RecordAtStart(session, world, 1e9), Interrupted);
}

TEST_F(RecordRange, SpikeFilesHaveTheirOwnGeometryAndOtherFilesNone) {
  std::string spikes = AcquisitionHeader();
  for (const char stamp : {'\x0a', '\x14', '\x1e'}) spikes.append(1, stamp).append(303, '\0');
  Session session;
  session.File = {folder.Put("TT1.Ntt", spikes), 0, 3};
  EXPECT_EQ(TimeOfRecord(session, 2), 30);
  EXPECT_EQ(RecordAtStart(session, world, 11)->Record, 1);
  EXPECT_EQ(RecordAtEnd(session, world, 25)->Time, 20);
  for (const char* name : {"TT1.txt", "picture.parms"}) {
    session.File.Path = folder.Put(name, "nothing of the kind");
    EXPECT_FALSE(RecordAtStart(session, world, 1) || RecordAtEnd(session, world, 1) || TimeOfRecord(session, 0));
  }
}

}  // namespace
}  // namespace pallomir
