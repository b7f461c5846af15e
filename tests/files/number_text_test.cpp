#include "pallomir/files/number_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstring>
#include <limits>
#include <locale>
#include <random>

#include "support/refusal.h"

namespace pallomir {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();

TEST(NumberFromText, AcceptsWhatPeopleType) {
  const std::pair<std::string, double> cases[] = {{" 12.5\r\n", 12.5}, {"+3", 3},
                                                  {"-.5", -0.5},       {"5.", 5},
                                                  {"007", 7},          {"1E-2", 0.01},
                                                  {"1e+3", 1000},      {"-1e400", -kLargest},
                                                  {"1e-400", 0},       {std::string(1'000'000, '9'), kLargest}};
  for (const auto& [text, number] : cases) EXPECT_EQ(NumberFromText(text), number) << text.substr(0, 20);
}

TEST(NumberFromText, RefusesTextThatOnlyBeginsLikeANumber) {
  for (const char* text : {"",    " ",    "-",   "+",    ".",   "-.",  "e5",    "1e",    "1,5",   "1 2",   "12a",
                           "inf", "-inf", "nan", "0x10", "--5", "-+5", "1.2.3", "start", "1e5.5", "\u0663"})
    EXPECT_FALSE(NumberFromText(text)) << text;
}

TEST(NumberText, IsShortestWithinItsDigits) {
  const std::pair<float, const char*> singles[] = {{12.5F, "12.5"},
                                                   {0.1F, "0.1"},
                                                   {1.5e7F, "1.5E+07"},
                                                   {1234567, "1234567"},
                                                   {16777216, "1.677722E+07"},
                                                   {0.0001F, "0.0001"},
                                                   {1e-5F, "1E-05"},
                                                   {-0.0F, "0"},
                                                   {-3, "-3"}};
  for (const auto& [value, text] : singles) EXPECT_EQ(SingleText(value), text);
  const std::pair<double, const char*> doubles[] = {
      {0.1 + 0.2, "0.3"}, {1.0 / 3, "0.333333333333333"}, {123456789012345, "123456789012345"}, {1e15, "1E+15"}};
  for (const auto& [value, text] : doubles) EXPECT_EQ(DoubleText(value), text);
  EXPECT_EQ(PlainDecimal(1234567890123456), "1234567890123456");
  EXPECT_EQ(PlainDecimal(1e15), "1000000000000000");
  EXPECT_EQ(Grouped(-123456) + " " + Grouped(1234567), "-123\u202f456 1\u202f234\u202f567");
}

TEST(NumberText, IsShortestWhenWrittenInBulkToo) {
  const auto put = [](auto value, int digits) {
    char quick[kNumberRoom], slow[kNumberRoom];
    if constexpr (std::is_same_v<decltype(value), float>)
      *PutSingle(quick, value) = '\0';
    else
      *PutDouble(quick, value) = '\0';
    *std::to_chars(slow, slow + kNumberRoom, value == 0 ? 0 : double{value}, std::chars_format::general, digits).ptr =
        0;
    if (char* e = std::strchr(slow, 'e')) *e = 'E';
    ASSERT_STREQ(quick, slow);
  };
  // Numbers around changes in the number of digits, exact halves of the last digit, and random numbers.
  for (const float edge : {1e-4F, 1e-3F, 0.1F, 1.0F, 10.0F, 1e6F, 999999.5F, 1e7F, 1000000.5F, 1000001.5F, 8388607.5F})
    for (float value = std::nextafter(edge, 0.0F), end = std::nextafter(std::nextafter(edge, 1e9F), 1e9F); value < end;
         value = std::nextafter(value, 1e9F))
      put(value, 7);
  std::mt19937_64 generator(1);
  for (int k = 0; k < 200'000; ++k) {
    const uint64_t bits = generator();
    put(std::bit_cast<float>(static_cast<uint32_t>(bits)), 7);
    put(std::ldexp(static_cast<float>(bits % 0x1000000), static_cast<int>(bits >> 32) % 40 - 38), 7);
    put(std::bit_cast<double>(bits), 15);
    put(std::ldexp(static_cast<double>(bits), -static_cast<int>(bits % 64)), 15);
    put(-static_cast<double>(bits >> bits % 64), 15);
  }
}

TEST(NumberText, UsesAPointWhateverTheLocale) {
  struct Comma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    std::string do_grouping() const override { return "\3"; }
  };
  const std::locale before = std::locale::global(std::locale(std::locale::classic(), new Comma));
  for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8"}) std::setlocale(LC_NUMERIC, name);
  EXPECT_EQ(NumberFromText("1234.5"), 1234.5);
  EXPECT_FALSE(NumberFromText("1234,5"));
  EXPECT_EQ(SingleText(1234.5F) + " " + DoubleText(1234.5) + " " + PlainDecimal(1234.5), "1234.5 1234.5 1234.5");
  std::setlocale(LC_NUMERIC, "C");
  std::locale::global(before);
}

TEST(WholeNumber, RoundsHalvesToEvenAndRefusesWhatDoesNotFit) {
  const std::pair<double, int32_t> cases[] = {{0.5, 0}, {1.5, 2}, {2.5, 2}, {-1.5, -2}, {2147483647.4, 2147483647}};
  for (const auto& [value, whole] : cases) EXPECT_EQ(WholeNumber(value, "Record"), whole) << value;
  const auto refusal = [](double value) { return Refusal([=] { WholeNumber(value, "Start record"); }); };
  EXPECT_EQ(refusal(1e99), "Start record 1E+99 is too large.");
  for (const double value : {2147483647.6, -1e10, double{NAN}, double{INFINITY}}) EXPECT_NE(refusal(value), "");
}

}  // namespace
}  // namespace pallomir
