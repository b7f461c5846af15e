// A rate map from arrays.

#include <pallomir/science/behaviour/grid_map.h>
#include <cstdio>

int main() {
  pallomir::Positions walk;
  for (int i = 0; i < 1000; ++i) pallomir::AppendSample(walk, {i * 40'000, 100.0 + i % 50, 100.0 + i / 20, 0});
  const pallomir::Track track = pallomir::TrackWithin(walk, {0, 40'000'000});
  const std::vector<int64_t> spikes{1'000'000, 1'010'000, 20'000'000};
  const pallomir::Map occupancy = pallomir::OccupancyMap(track, pallomir::BinSize(0));
  const auto counted = pallomir::CountSpikes(track, pallomir::SamplesOfSpikes(track, spikes), occupancy);
  const pallomir::Map rate = pallomir::RateMap(counted.Counts, occupancy);
  std::printf("%d x %d bins, %d spikes, highest %.3f spikes/s\n", rate.Columns, rate.Rows,
              static_cast<int>(counted.Mapped), pallomir::PeakOf(rate).Value);
  return counted.Mapped == 3 && pallomir::PeakOf(rate).Value > 0 ? 0 : 1;
}
