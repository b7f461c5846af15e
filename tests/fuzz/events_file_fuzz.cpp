#include <algorithm>
#include <string_view>

#include "fuzz/fuzz_target.h"
#include "pallomir/recorded/events_file.h"
#include "pallomir/timesel/epochs.h"
#include "support/recording_world.h"
#include "support/temporary_folder.h"

namespace pallomir {

/// An events file: every line of its listing is a timestamp, two blanks and printable text; the filter only omits
/// lines. The first lines also go through the epoch table and back.
FUZZ_TARGET(FuzzEventsFile) {
  static const TemporaryFolder folder;
  const std::string path = folder.Put("Events.Nev", {reinterpret_cast<const char*>(data), size});
  RecordingWorld world;
  const std::string all = EventsListing(path, false), some = EventsListing(path, true);
  REQUIRE(some.size() <= all.size());
  size_t at = 0;
  EpochTable table;
  for (size_t line = 0; at < all.size(); ++line) {
    const size_t end = all.find("\r\n", at), digits = all.find_first_not_of("0123456789", at);
    REQUIRE(end != std::string::npos && digits > at && all.compare(digits, 2, "  ") == 0);
    REQUIRE(std::all_of(all.begin() + at, all.begin() + end, [](char c) { return c >= 32 && c <= 126; }));
    if (line < kEpochs) table[line] = EpochOfItem(std::string_view(all).substr(at, end - at));
    at = end + 2;
  }
  const EpochTable again = TableOf(ItemsOf(table));
  REQUIRE(ItemsOf(again).size() <= ItemsOf(table).size());
  return 0;
}

}  // namespace pallomir
