#include "pallomir/files/parameter_header.h"

#include <gtest/gtest.h>

#include "pallomir/files/file_utility.h"
#include "pallomir/files/text_header.h"
#include "support/parameter_files.h"
#include "support/refusal.h"
#include "support/sessions.h"

namespace pallomir {
namespace {

/// Rows in which the low byte of the first parameter, as in measured values, cannot be the high byte of a timestamp.
std::vector<FileRow> MeasuredRows(int count, uint64_t firstStamp = 5'000'000) {
  std::vector<FileRow> rows = NumberedRows(count);
  for (FileRow& row : rows) row.Values.fill(0.1F);
  if (count > 0) rows[0].Stamp = firstStamp;
  return rows;
}

long HeaderOf(const std::string& bytes) {
  const TemporaryFolder folder;
  return FileUtility::GetHeaderLength(folder.Put("x.Ntt.parms", bytes));
}

TEST(ParameterHeader, IsFoundBeforeTheRows) {
  const std::string rows = BytesOf(MeasuredRows(3));
  const std::string own = TextHeader("ParameterFile"), acquired = AcquisitionHeader();
  const std::string lines = "made by a script\r\n134 features\n";
  // What follows the text looks like more text, up to a line end within the first timestamp: "1\n" and printable bytes.
  const std::string tricky = BytesOf(MeasuredRows(3, 0x3532'0A31));
  // The low byte of the first timestamp is a line end.
  const std::string lineEnd = BytesOf(MeasuredRows(3, 0x4C4B'0A)), late = BytesOf(MeasuredRows(3, 0x0A0D'0A0A));
  const std::tuple<const char*, std::string, size_t> cases[] = {
      {"none, a stamp like a line end", lineEnd, 0},
      {"none, a stamp like four line ends", late, 0},
      {"lines, then a stamp like a line end", lines + lineEnd, lines.size()},
      {"acquisition system's, then a stamp like a line end", acquired + lineEnd, 16384},
      {"lines of text, a piece of a row at the end", lines + rows + "piece", lines.size()},
      {"our own", own + rows, own.size()},
      {"our own, no rows", own, own.size()},
      {"acquisition system's", acquired + rows, 16384},
      {"acquisition system's, no rows", acquired, 16384},
      {"lines of text", lines + rows, lines.size()},
      {"lines that the first stamp continues", lines + tricky, lines.size()},
      {"64 KiB of text", std::string(65535, 'x') + "\n" + rows, 65536},
      {"none, more rows than are looked at", BytesOf(MeasuredRows(100)), 0},
      {"none, one row", BytesOf(MeasuredRows(1)), 0},
      {"none, rows beginning like text", tricky, 0},
      {"none, rows beginning with #", BytesOf(MeasuredRows(100, 0x23)), 0}};
  for (const auto& [what, bytes, header] : cases) EXPECT_EQ(HeaderOf(bytes), static_cast<long>(header)) << what;
}

TEST(ParameterHeader, IsNotFoundInOtherFiles) {
  std::vector<FileRow> late = MeasuredRows(64);
  late[63].Stamp = 100'000'000'000'000'000;
  const std::pair<const char*, std::string> cases[] = {
      {"empty", ""},
      {"short", "abc"},
      {"a picture", "\x89PNG\r\n\x1a\n" + std::string(50'000, '\xC3')},
      {"zeros", std::string(100'000, '\0')},
      {"line ends", std::string(70'000, '\n')},
      {"cut off within the acquisition system's header", AcquisitionHeader().substr(0, 9000)},
      {"a stamp that cannot be", BytesOf(late)}};
  for (const auto& [what, bytes] : cases) EXPECT_EQ(HeaderOf(bytes), -1) << what;
  EXPECT_EQ(FileUtility::GetHeaderLength("/nowhere/x.parms"), -1);
}

TEST(TextHeaders, EndWithTheirLastLineWithin64KiB) {
  const TemporaryFolder folder;
  const auto length = [&](const std::string& bytes) {
    return FileUtility::GetHeaderLength(folder.Put("cbfile.txt", bytes));
  };
  const std::string header = TextHeader("CBFile", "2026-11-21 14:03:22");
  EXPECT_EQ(header, "# Pallomir " PALLOMIR_VERSION
                    "\r\n# Kind: CBFile\r\n# Version: 1\r\n# Date: 2026-11-21 14:03:22\r\n# End of header\r\n");
  EXPECT_EQ(length(header + "1,2\r\n# End of header\r\n"), static_cast<long>(header.size()));
  EXPECT_EQ(length(std::string(65518, '\n') + "# End of header\r\n"), 65535);
  EXPECT_EQ(length(std::string(65530, '\n') + "# End of header\r\n"), -1);
  for (const char* none : {"", "1,2\r\n", "# End of header", "# End of header of file\r\n"})
    EXPECT_EQ(length(none), -1) << none;
}

TEST(TextHeaders, HoldFurtherLines) {
  const std::string header = TextHeader("RateMap", "now", {{"Spikes", "12"}, {"Note", "two\r\n# End of header"}});
  EXPECT_EQ(TextHeaderLength(header + "1\r\n"), static_cast<long>(header.size()));
  EXPECT_EQ(BodyBehindHeader(header + "1\r\n")->FirstLine, 8);
  EXPECT_FALSE(BodyBehindHeader("1\r\n"));
  EXPECT_EQ(HeaderValue(header, "Kind"), "RateMap");
  EXPECT_EQ(HeaderValue(header, "Spikes"), "12");
  EXPECT_EQ(HeaderValue(header, "Note"), "two??# End of header");
  EXPECT_EQ(HeaderValue(header, "Spike"), std::nullopt);
}

TEST(ParameterFile, RowCountRoundsAPartialRowToNearestAndAHalfToEven) {
  const TemporaryFolder folder;
  const std::string header = TextHeader("ParameterFile");
  const std::array<int64_t, 3> even = {4, 4, 5}, odd = {5, 6, 6};
  for (const size_t trailing : {0, 1, 2}) {
    const std::string piece = BytesOf(NumberedRows(1)).substr(0, 271 + trailing);
    EXPECT_EQ(SessionOn(folder, header + BytesOf(NumberedRows(4)) + piece).File.RecordCount, even[trailing]);
    EXPECT_EQ(SessionOn(folder, header + BytesOf(NumberedRows(5)) + piece).File.RecordCount, odd[trailing]);
  }
  EXPECT_EQ(SessionOn(folder, header).File.RecordCount, 0);
}

}  // namespace
}  // namespace pallomir
