#include "pallomir/recorded/events_file.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <vector>

#include "pallomir/files/error.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/number_text.h"
#include "pallomir/files/raw_layout.h"
#include "pallomir/files/timestamp.h"

namespace pallomir {

namespace {

constexpr auto kHeaderLength = static_cast<int64_t>(kRawHeaderLength);
constexpr auto kRecord = static_cast<int64_t>(kEventsLayout.RecordBytes);

std::string Printable(const unsigned char* begin, const unsigned char* end) {
  std::string text;
  std::copy_if(begin, end, std::back_inserter(text), [](unsigned char byte) { return byte >= 32 && byte <= 126; });
  return text;
}

/// Without an exponent, with at most 15 significant digits.
std::string StampText(double stamp) {
  if (stamp < 1e15) return PlainDecimal(stamp);
  char text[32];  // d.dddddddddddddde+XX
  const char* end = std::to_chars(text, text + sizeof text, stamp, std::chars_format::scientific, 14).ptr;
  const int exponent = std::atoi(std::string(end - 2, end).c_str());
  return text[0] + std::string(text + 2, 14) + std::string(static_cast<size_t>(exponent - 14), '0');
}

bool Filtered(const std::string& event) {
  return event.starts_with("TTL Input on") || event.starts_with("AD Record Loss Detected");
}

}  // namespace

std::string EventsListing(const std::filesystem::path& path, bool filter, const Progress& progress) {
  FileReader file(path);
  unsigned char first = 0;
  file.ReadUpTo(0, &first, 1);
  const int64_t start = first == '#' ? kHeaderLength : 0;
  const double count = static_cast<double>(static_cast<int64_t>(file.Length()) - kHeaderLength) / kRecord;
  const auto last = static_cast<int64_t>(std::nearbyint(count));
  constexpr int64_t kBlock = 4096;
  std::vector<unsigned char> bytes(static_cast<size_t>(std::clamp<int64_t>(last + 1, 0, kBlock) * kRecord));
  std::string listing;
  int64_t lines = 0;
  for (int64_t n = 0; n <= last; n += kBlock) {
    const int64_t records = std::min(kBlock, last + 1 - n);
    const size_t got =
        file.ReadUpTo(static_cast<uint64_t>(start + n * kRecord), bytes.data(), static_cast<size_t>(records * kRecord));
    // Records past the end of the file are zeros.
    std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(got), bytes.end(), static_cast<unsigned char>(0));
    for (int64_t r = 0; r < records; ++r) {
      const unsigned char* record = bytes.data() + r * kRecord;
      const std::string event = Printable(record + kEventText, record + kEventText + kEventTextBytes);
      if (filter && Filtered(event)) continue;
      if (++lines > kMostEvents) return listing + "Only the first million events are listed: the file holds more.\r\n";
      listing += StampText(TimestampFromBytes(record + kEventsLayout.StampOffset)) + "  " + event + "\r\n";
    }
    progress.Reached(static_cast<double>(n) / static_cast<double>(last + 1));
  }
  return listing;
}

}  // namespace pallomir
