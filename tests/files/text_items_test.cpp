#include "files/text_items.h"

#include <gtest/gtest.h>

#include <vector>

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
      {"a,b\r\nc\nd", {"a", "b", "c", "d"}},
      {"  1.5 ,\t-2 \r\n", {"1.5", "-2"}},
      {"\"a, b\",\"c\"\r\n", {"a, b", "c"}},
      {"\"two\r\nlines\",3", {"two\r\nlines", "3"}},
      {"\" kept \"  , x", {" kept ", "x"}},
      {"a,,\"\",b", {"a", "", "", "b"}},
      {"one item", {"one item"}},
      {"\"never closed, 1\r\n2", {"never closed, 1\r\n2"}},
      {"\"", {""}},
      {"a\r\n\r\n\r\nb\r\n \r\n", {"a", "b"}},
      {" \r\n\t", {}},
  };
  for (const auto& [text, items] : cases) EXPECT_EQ(ItemsOf(text), items) << text;
}

TEST(TextItems, KnowTheLineOnWhichEachBegan) {
  TextItems items("1,\"a\nb\",2\r\n\r\n3\n4", "file");
  std::vector<int> lines;
  for (; !items.AtEnd(); lines.push_back(items.Line())) items.Text();
  EXPECT_EQ(lines, (std::vector<int>{1, 1, 2, 4, 5}));
}

TEST(TextItems, SayWhereTheFileEndsEarlyOrHoldsNoNumber) {
  TextItems items("1,\r\n2\r\nthree,4\r\n", "cbfile.m1.txt");
  EXPECT_EQ(items.Number() + items.Number(), 3);
  EXPECT_EQ(Refusal([&] { items.Number(); }), "cbfile.m1.txt, line 3: \"three\" is not a number.");
  EXPECT_EQ(items.Number(), 4);
  EXPECT_EQ(Refusal([&] { items.Text(); }), "cbfile.m1.txt ended early, at line 4.");
}

}  // namespace
}  // namespace pallomir
