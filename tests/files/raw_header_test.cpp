#include "pallomir/files/raw_header.h"

#include <gtest/gtest.h>

#include "pallomir/files/raw_layout.h"

namespace pallomir {
namespace {

TEST(RawHeader, FindsALineByItsWholeKey) {
  const std::string header =
      "######## Data file\r\n## -AlignmentPt 1\r\n\t-AlignmentPtLate 2\n-alignmentpt\t 8 \r\n-AlignmentPt 9\r\n"
      "-Empty\r\n-Name Sc\xFC\x07k\r\n-Other ~ \x7F\r\n" +
      std::string("-Cut 1\0-Last 5", 14);
  EXPECT_EQ(HeaderText(header, "AlignmentPt"), "8");
  EXPECT_EQ(HeaderText(header, "AlignmentPtLate"), "2");
  EXPECT_EQ(HeaderText(header, "Empty"), "");
  EXPECT_EQ(HeaderText(header, "Align"), "");
  EXPECT_EQ(HeaderText(header, "Name"), "Sc??k");
  EXPECT_EQ(HeaderText(header, "Other"), "~ ?");
  EXPECT_EQ(HeaderText(header, "Cut"), "1");
  EXPECT_EQ(HeaderText(header, "Last"), "5");
  EXPECT_EQ(HeaderText("", "Last"), "");
}

TEST(RawHeader, GivesOneNumberOrOnePerChannel) {
  const std::string header = "-One 32000.5\n-Four 6.1e-008 1 -2\t+3  \n-Half 1,5\n-Some 4 of 5\n-None nan\n";
  EXPECT_EQ(HeaderNumbers(header, "One"), std::vector<double>{32000.5});
  EXPECT_EQ(HeaderNumbers(header, "Four"), (std::vector<double>{6.1e-8, 1, -2, 3}));
  EXPECT_EQ(HeaderNumbers(header, "Half"), std::vector<double>{});
  EXPECT_EQ(HeaderNumbers(header, "Some"), std::vector<double>{4});
  EXPECT_EQ(HeaderNumbers(header, "None"), std::vector<double>{});
}

TEST(RawHeader, AGeneratedHeaderHasTheFullLengthAndCanBeRead) {
  const std::string header = MakeRawHeader("a title", {{"RecordSize", "304"}});
  EXPECT_EQ(header.size(), kRawHeaderLength);
  EXPECT_TRUE(header.starts_with("######## a title\r\n-RecordSize 304\r\n"));
  EXPECT_EQ(header.back(), '\0');
  EXPECT_EQ(HeaderText(header, "RecordSize"), "304");
}

}  // namespace
}  // namespace pallomir
