#include "pallomir/recorded/events_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "pallomir/files/error.h"
#include "pallomir/files/raw_layout.h"
#include "support/events_files.h"
#include "support/parameter_files.h"
#include "support/refusal.h"
#include "support/temporary_folder.h"

namespace pallomir {
namespace {

struct EventsFile : ::testing::Test {
  const TemporaryFolder folder;

  std::string Listing(std::string_view bytes, bool filter = false) {
    return EventsListing(folder.Put("Events.Nev", bytes), filter);
  }
};

TEST_F(EventsFile, ListsEveryRecordAndOneMore) {
  const std::string header = AcquisitionHeader();
  const std::string two = EventRecord(1'200'000'000, "Starting Recording") + EventRecord(1'100'000'000, "earlier");
  const std::string listed = "1200000000  Starting Recording\r\n1100000000  earlier\r\n";
  const std::string nothing = "0  \r\n";
  const std::tuple<const char*, std::string, std::string> cases[] = {
      {"with header", header + two, listed + nothing},
      {"header alone", header, nothing},
      {"less than half a record: the one more", header + two + EventRecord(7, "cut").substr(0, 60),
       listed + "7  cut\r\n"},
      {"half a record: rounded to even", header + two + EventRecord(7, "cut").substr(0, 92), listed + "7  cut\r\n"},
      {"more than half", header + EventRecord(7, "cut").substr(0, 100), "7  cut\r\n" + nothing},
      {"no header: as many as a header takes are not listed", two, ""},
      {"empty", "", ""}};
  for (const auto& [what, bytes, expected] : cases) EXPECT_EQ(Listing(bytes), expected) << what;
}

TEST_F(EventsFile, WithoutHeaderTheLastRecordsAreLeftOut) {
  std::string bytes;
  for (uint64_t n = 0; n < 100; ++n) bytes += EventRecord(n, "");
  std::string expected;
  for (int n = 0; n <= 11; ++n) expected += std::to_string(n) + "  \r\n";  // (18400 - 16384) / 184 = 10.96
  EXPECT_EQ(Listing(bytes), expected);
}

TEST_F(EventsFile, KeepsPrintableBytesWhereverTheyAre) {
  using namespace std::string_view_literals;
  EXPECT_EQ(Listing(AcquisitionHeader() + EventRecord(5, "a\0b\x7f\xe9\tc ~\x1f"sv)), "5  abc ~\r\n0  \r\n");
  const std::string full(128, 'x');
  EXPECT_EQ(Listing(AcquisitionHeader() + EventRecord(5, full)), "5  " + full + "\r\n0  \r\n");
}

TEST_F(EventsFile, FiltersInputsAndErrors) {
  const std::string header = AcquisitionHeader();
  const std::string bytes = header + EventRecord(1, "TTL Input on board 0") + EventRecord(2, " TTL Input on board 0") +
                            EventRecord(3, "TTL Input o") + EventRecord(4, "AD Record Loss Detected!") +
                            EventRecord(5, "AD Record Loss Detecte");
  EXPECT_EQ(Listing(bytes, true), "2   TTL Input on board 0\r\n3  TTL Input o\r\n5  AD Record Loss Detecte\r\n0  \r\n");
  const std::string all = Listing(bytes);
  EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 6);
}

TEST_F(EventsFile, TimestampsHaveFifteenDigitsAtMost) {
  const std::pair<uint64_t, std::string> cases[] = {{999'999'999'999'999, "999999999999999"},
                                                    {1'700'000'000'123'456, "1700000000123460"},
                                                    {~0ULL, "18446744073709600000"}};
  for (const auto& [stamp, text] : cases)
    EXPECT_EQ(Listing(AcquisitionHeader() + EventRecord(stamp, "")), text + "  \r\n0  \r\n");
}

TEST_F(EventsFile, ListsTheFirstMillionLinesAndSaysThatThereAreMore) {
  const std::string path = folder.Put("Events.Nev", AcquisitionHeader());
  const std::string note = "Only the first million events are listed: the file holds more.\r\n";
  for (const auto& [records, more] : {std::pair(999'999, false), {1'000'000, true}}) {
    std::filesystem::resize_file(path, kRawHeaderLength + uintmax_t{184} * static_cast<unsigned>(records));
    const std::string listing = EventsListing(path, false);
    EXPECT_EQ(std::count(listing.begin(), listing.end(), '\n'), kMostEvents + (more ? 1 : 0)) << records;
    EXPECT_EQ(listing.ends_with("0  \r\n" + note), more) << records;
  }
}

TEST_F(EventsFile, RefusesAMissingFileAndStopsALongOne) {
  EXPECT_NE(Refusal([&] { EventsListing(folder / "none.Nev", false); }), "");
  const std::string path = folder.Put("Events.Nev", AcquisitionHeader());
  EXPECT_THROW(EventsListing(path, false, Progress([](double) { return false; })), Interrupted);
}

}  // namespace
}  // namespace pallomir
