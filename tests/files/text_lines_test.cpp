#include "pallomir/files/text_lines.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "pallomir/files/file_lines.h"
#include "support/temporary_folder.h"

namespace pallomir {
namespace {

/// A line with its number and where it ends: "2:b@6".
std::string Told(const TextLine& line) {
  return std::to_string(line.Number) + ":" + std::string(line.Text) + (line.IsWhole ? "" : "...") + "@" +
         std::to_string(line.End);
}

using Texts = std::vector<std::string>;

Texts LinesInMemory(const std::string& text, const TextBody& body = {}) {
  Texts all;
  TextLines lines(text, body);
  for (TextLine line; lines.Take(line);) all.push_back(Told(line));
  return all;
}

Texts LinesOfFile(const std::string& text, const TextBody& body = {}) {
  const TemporaryFolder folder;
  FileReader file(folder.Put("text", text));
  Texts all;
  ForEachLine(file, body, [&](const TextLine& line) { all.push_back(Told(line)); });
  return all;
}

TEST(TextLines, EndWithOneOrTwoBytesAndAreCounted) {
  const std::pair<std::string, Texts> cases[] = {
      {"", {}},
      {"\n", {"1:@1"}},
      {"a\nbc", {"1:a@2", "2:bc@4"}},
      {"a\r\n\r\nbc\r\n", {"1:a@3", "2:@5", "3:bc@9"}},
      {"a\rb\r\r\n", {"1:a\rb\r@6"}},
      {"a\n\r", {"1:a@2", "2:@3"}},
  };
  for (const auto& [text, lines] : cases) {
    EXPECT_EQ(LinesInMemory(text), lines) << text;
    EXPECT_EQ(LinesOfFile(text), lines) << text;
  }
  const TextBody body{5, 3};
  const Texts rest = {"3:x@8", "4:y@9"};
  EXPECT_EQ(LinesInMemory("1\n22\nx\r\ny", body), rest);
  EXPECT_EQ(LinesOfFile("1\n22\nx\r\ny", body), rest);
}

TEST(TextLines, OfAFileAreTheSameWhereverABlockEnds) {
  // Lines of 4 to 70 bytes, and of all lengths up to a whole block, over the ends of several blocks.
  std::string text(65'530, '\n');
  for (int i = 0; i < 4000; ++i) text += std::string(static_cast<size_t>(i) * 7 % 67, 'x') + std::to_string(i) + "\r\n";
  EXPECT_EQ(LinesOfFile(text), LinesInMemory(text));
}

TEST(TextLines, OfAFileAreCutOffBeyondTheLongest) {
  const std::string longest(kLongestLine, 'x');
  for (const size_t before : {size_t{0}, size_t{65'000}}) {
    const std::string first(before, '\n');
    const auto last = [&](const std::string& line) { return LinesOfFile(first + line + "\nend").rbegin()[1]; };
    const std::string number = std::to_string(before + 1) + ":";
    EXPECT_EQ(last(longest), number + longest + "@" + std::to_string(before + kLongestLine + 1));
    EXPECT_EQ(last(longest + "y"), number + longest + "...@" + std::to_string(before + kLongestLine + 2));
    EXPECT_EQ(last(longest + std::string(200'000, 'y')),
              number + longest + "...@" + std::to_string(before + kLongestLine + 200'001));
  }
}

TEST(TextFields, AreDelimitedByCommas) {
  const std::pair<const char*, Texts> cases[] = {
      {"", {""}},
      {"1", {"1"}},
      {" 1 ,,x", {" 1 ", "", "x"}},
      {"1,", {"1", ""}},
  };
  for (const auto& [line, expected] : cases) {
    Texts taken;
    for (TextFields fields(line); fields.More();) taken.emplace_back(fields.Take());
    EXPECT_EQ(taken, expected) << line;
  }
  TextFields fields("1, \"a, b\" ,\"c");
  EXPECT_FALSE(fields.AtQuotes());
  EXPECT_EQ(fields.Take(), "1");
  ASSERT_TRUE(fields.AtQuotes());
  EXPECT_EQ(fields.TakeQuoted(), "a, b");
  EXPECT_EQ(fields.Take(), " ");
  ASSERT_TRUE(fields.AtQuotes());
  EXPECT_FALSE(fields.TakeQuoted());
  EXPECT_EQ(fields.Rest(), "\"c");
}

TEST(TextWords, AreDelimitedByBlanks) {
  std::string_view text = " -ADBitVolts\t 0.1  0.2 ";
  for (const char* word : {"-ADBitVolts", "0.1", "0.2", "", ""}) EXPECT_EQ(TakeWord(text), word);
  text = "1\t2 3";
  EXPECT_EQ(TakeWord(text, " "), "1\t2");
  EXPECT_EQ(text, " 3");
}

}  // namespace
}  // namespace pallomir
