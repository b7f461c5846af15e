#include "pallomir/files/text_items.h"

#include <gtest/gtest.h>

#include <vector>

#include "pallomir/files/printable.h"
#include "support/refusal.h"

namespace pallomir {
namespace {

std::vector<std::string> ItemsOf(std::string_view text) {
  std::vector<std::string> all;
  for (TextItems items(text, "file"); !items.AtEnd();) all.push_back(items.Text());
  return all;
}

TEST(TextItems, AreDelimitedByCommasAndLineEnds) {
  const std::pair<const char*, std::vector<std::string>> cases[] = {
      {"a,b\r\nc\nd", {"a", "b", "c", "d"}},   {"  1.5 ,\t-2 \r\n", {"1.5", "-2"}},
      {"\"a, b\",\"c\"\r\n", {"a, b", "c"}},   {"\" kept \"  , x", {" kept ", "x"}},
      {"a,,\"\",b", {"a", "", "", "b"}},       {"one item", {"one item"}},
      {"a\r\n\r\n\r\nb\r\n \r\n", {"a", "b"}}, {" \r\n\t", {}},
  };
  for (const auto& [text, items] : cases) EXPECT_EQ(ItemsOf(text), items) << text;
}

TEST(TextItems, KnowTheLineOnWhichEachBegins) {
  TextItems items("1,\"a\",2\r\n\r\n3\n4", "file");
  std::vector<int> lines;
  for (; !items.AtEnd(); lines.push_back(items.Line())) items.Text();
  EXPECT_EQ(lines, (std::vector<int>{1, 1, 1, 3, 4}));
}

TEST(TextItems, SayWhereTheFileEndsEarlyOrHoldsNoNumber) {
  TextItems items("1,\r\n2\r\nthree,4\r\n", "cbfile.m1.txt");
  EXPECT_EQ(items.Number() + items.Number(), 3);
  EXPECT_EQ(Refusal([&] { items.Number(); }), "cbfile.m1.txt, line 3: \"three\" is not a number.");
  EXPECT_EQ(items.Number(), 4);
  EXPECT_EQ(Refusal([&] { items.Text(); }), "cbfile.m1.txt ended early, at line 4.");
}

TEST(TextItems, EndAtALineEndAndHaveALimit) {
  const std::string longest(TextItems::kLongestItem, 'x');
  const std::pair<std::string, std::string> cases[] = {
      {"\"two\r\nlines\",3", "file, line 1: the quotes round \"two\" are not closed."},
      {"\"two\nlines\",3", "file, line 1: the quotes round \"two\" are not closed."},
      {"\n\"MPea", "file, line 2: the quotes round \"MPea\" are not closed."},
      {"\"", "file, line 1: the quotes round \"\" are not closed."},
      {longest + ",1", ""},
      {"\"" + longest + "\"", ""},
      {longest + "x,1", "file, line 1: an item is longer than 4096 characters."},
      {"\"" + longest + "x\"", "file, line 1: an item is longer than 4096 characters."},
  };
  for (const auto& [text, refusal] : cases) {
    TextItems items(text, "file");
    EXPECT_EQ(Refusal([&] { items.Text(); }), refusal);
  }
}

TEST(Sentences, AreCompleteAndPrintableWhateverTheyQuote) {
  const std::pair<std::string_view, std::string> cases[] = {
      {{"a\0b", 3}, "\"a?b\""},
      {"\x1b[31mred\x7f\r\n", "\"?[31mred???\""},
      {"\xc3\xa9 \xe2\x82\xac \xf0\x9f\x90\x80", "\"\xc3\xa9 \xe2\x82\xac \xf0\x9f\x90\x80\""},
      {"\xc2\x9b"
       "1m",
       "\"??1m\""},                           // a terminal's control sequence in two bytes
      {"caf\xe9 \xc3", "\"caf? ?\""},         // not UTF-8, and a truncated character
      {"\xf8\x88\x80\x80\x80", "\"?????\""},  // longer than any character is
  };
  for (const auto& [text, quoted] : cases) EXPECT_EQ(Quoted(text), quoted);
  // Truncated between characters, never within one.
  std::string accents;
  for (int i = 0; i < 50; ++i) accents += "\xc3\xa9";
  EXPECT_EQ(Quoted(accents), '"' + accents.substr(0, 80) + '"');
  const std::string name("bad\x1bname\0.txt", 13);
  EXPECT_STREQ(CommandError(ErrorKind::Refused, name + ": wrong.\n\nUndo.").what(), "bad?name?.txt: wrong.\n\nUndo.");
}

}  // namespace
}  // namespace pallomir
