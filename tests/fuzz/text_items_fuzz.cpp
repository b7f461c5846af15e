#include <algorithm>
#include <cmath>
#include <string_view>

#include "fuzz/fuzz_target.h"
#include "pallomir/files/number_text.h"
#include "pallomir/files/text_header.h"
#include "pallomir/files/text_items.h"
#include "pallomir/session/point_reader.h"
#include "support/refusal.h"
#include "support/sessions.h"

namespace pallomir {

/// The bytes as delimited items, and as the VideoSampling file.
FUZZ_TARGET(FuzzTextItems) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto lines = 1 + std::count(text.begin(), text.end(), '\n');
  TextItems items(text, "file");
  int line = 1;
  std::string first;
  for (size_t count = 0; !items.AtEnd(); ++count) {
    REQUIRE(count <= size);  // every item takes at least one byte
    std::string item;
    const std::string refusal = Refusal([&] { item = items.Text(); });
    if (!refusal.empty()) {
      REQUIRE(refusal.starts_with("file, line ") && refusal.find_first_of("\r\n") == std::string::npos);
      break;
    }
    REQUIRE(item.size() <= TextItems::kLongestItem && item.find_first_of("\r\n") == std::string::npos);
    if (count == 0) first = item;
    REQUIRE(items.Line() >= line && items.Line() <= lines);
    line = items.Line();
    if (const auto number = NumberFromText(item)) {
      REQUIRE(std::isfinite(*number));
      // The text of a number gives the same number again, to the digits in the text.
      REQUIRE(std::abs(*NumberFromText(DoubleText(*number)) - *number) <= std::abs(*number) * 1e-14);
      REQUIRE(NumberFromText(PlainDecimal(*number)) == *number);
    }
  }
  REQUIRE(!Refusal([&] { items.Text(); }).empty());

  static const TemporaryFolder folder;
  static const Session session = SessionOn(folder, TextHeader("ParameterFile"));
  folder.Put("VideoSampling", text);
  const std::string refusal = Refusal([&] { CheckVideoSampling(session); });
  REQUIRE(refusal.empty() || refusal.starts_with("END Invalid Video Sampling Rate"));
  const double rate = std::nearbyint(NumberFromText(first).value_or(0));
  if (size <= 256) REQUIRE(refusal.empty() == (rate == 30 || rate == 60));
  return 0;
}

}  // namespace pallomir
