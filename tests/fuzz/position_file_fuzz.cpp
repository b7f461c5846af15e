#include <algorithm>
#include <cmath>
#include <string_view>

#include "fuzz/fuzz_target.h"
#include "pallomir/recorded/position_file.h"
#include "pallomir/results/spike_times.h"
#include "pallomir/science/behaviour/grid_map.h"
#include "pallomir/science/behaviour/tracking.h"
#include "support/recording_world.h"
#include "support/refusal.h"
#include "support/temporary_folder.h"

namespace pallomir {

namespace {

void RequireOrder(const Positions& positions) {
  const size_t count = positions.Time.size();
  REQUIRE(positions.X.size() == count && positions.Y.size() == count && positions.Direction.size() == count);
  REQUIRE(std::is_sorted(positions.Time.begin(), positions.Time.end()));
  for (size_t i = 0; i < count; ++i) {
    REQUIRE(std::abs(positions.Time[i]) <= kFarthestStamp);
    REQUIRE(std::isnan(positions.X[i]) == std::isnan(positions.Y[i]));
    const double direction = positions.Direction[i];
    REQUIRE(std::isnan(direction) || (direction >= 0 && direction < 360 && !std::isnan(positions.X[i])));
  }
}

void RequireTime(const Track& track) {
  double held = 0, mapped = 0;
  for (size_t i = 0; i < track.Time.size(); ++i) {
    REQUIRE(track.Hold[i] >= 0 && track.Hold[i] <= static_cast<double>(kLongestHold));
    if (!std::isnan(track.X[i])) held += track.Hold[i] / 1e6;
  }
  Map occupancy;
  if (!Refusal([&] { occupancy = OccupancyMap(track, BinSize(0)); }).empty()) return;
  for (const double seconds : occupancy.Values) mapped += seconds;
  REQUIRE(std::abs(mapped - held) <= 1e-9 * held);
  const auto samples = SamplesOfSpikes(track, track.Time);
  for (size_t s = 0; s < samples.size(); ++s)
    REQUIRE(samples[s] < 0 || track.Time[static_cast<size_t>(samples[s])] == track.Time[s]);
}

}  // namespace

/// The bytes as a position file, and as a cluster file and a time file: what is read is in order and within bounds.
FUZZ_TARGET(FuzzPositionFile) {
  static const TemporaryFolder folder;
  static const std::string path = folder / "fuzzed";
  folder.Put("fuzzed", std::string_view(reinterpret_cast<const char*>(data), size));
  RecordingWorld world;
  Refusal([&] {
    const Positions positions = ReadPositions(path);
    RequireOrder(positions);
    const Track track = TrackWithin(positions, {-kFarthestStamp, kFarthestStamp});
    REQUIRE(track.Time.size() == positions.Time.size());
    RequireTime(track);
    for (const double direction : DirectionsOfTravel(track, 20))
      REQUIRE(std::isnan(direction) || (direction >= 0 && direction < 360));
  });
  Refusal([&] {
    const SpikeTimes spikes = ReadSpikeTimes(world, path, path);
    REQUIRE(std::is_sorted(spikes.Times.begin(), spikes.Times.end()));
    for (const int64_t time : spikes.Times) REQUIRE(spikes.Range.Holds(time));
  });
  return 0;
}

}  // namespace pallomir
