#include <cmath>
#include <string_view>

#include "fuzz/fuzz_target.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/results/direction_file.h"
#include "pallomir/results/map_file.h"
#include "pallomir/results/train_file.h"
#include "pallomir/science/behaviour/spatial_autocorrelation.h"
#include "support/recording_world.h"
#include "support/refusal.h"
#include "support/temporary_folder.h"

namespace pallomir {

namespace {

/// The contents after the header, which do not depend on the clock.
std::string Body(const std::string& path) {
  const std::string text = ReadText(path);
  return text.substr(static_cast<size_t>(TextHeaderLength(text)));
}

/// What is read can be written, and is the same when it is read again.
template <class Read, class Write>
void RequireRoundTrip(const TemporaryFolder& folder, Read read, Write write) {
  static const std::string path = folder / "fuzzed", copy = folder / "copy", again = folder / "again";
  Refusal([&] {
    const auto result = read(path);
    write(result, copy);
    REQUIRE(Refusal([&] { write(read(copy), again); }).empty());
    REQUIRE(Body(copy) == Body(again));
  });
}

void RequireCorrelations(const std::string& path) {
  Refusal([&] {
    const MapResult result = ReadMapFile(path);
    REQUIRE(result.Grid.Values.size() == static_cast<size_t>(result.Grid.Columns) * result.Grid.Rows);
    for (const double r : SpatialAutocorrelation(result.Grid).Values) REQUIRE(std::isnan(r) || std::abs(r) <= 1);
  });
}

}  // namespace

/// The bytes as a file of each result: map, autocorrelation and intervals of a train, direction.
FUZZ_TARGET(FuzzResultFile) {
  static const TemporaryFolder folder;
  folder.Put("fuzzed", std::string_view(reinterpret_cast<const char*>(data), size));
  RequireRoundTrip(folder, ReadMapFile, WriteMapFile);
  RequireRoundTrip(folder, ReadAutocorrelationFile, WriteAutocorrelationFile);
  RequireRoundTrip(folder, ReadIntervalFile, WriteIntervalFile);
  RequireRoundTrip(folder, ReadDirectionFile, WriteDirectionFile);
  RequireCorrelations(folder / "fuzzed");
  return 0;
}

}  // namespace pallomir
