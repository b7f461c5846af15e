#include "pallomir/results/compute_maps.h"
#include "pallomir/session/work_pace.h"

#include "pallomir/files/file_utility.h"
#include "pallomir/recorded/position_file.h"
#include "pallomir/results/explanations.h"
#include "pallomir/science/behaviour/spatial_autocorrelation.h"

namespace pallomir {

MapResult RateMapOf(const Positions& positions, const Track& track, const SpikeTimes& spikes) {
  const Map occupancy = OccupancyMap(track, BinSize(positions.PixelsPerCm));
  const SpikeMap counted = CountSpikes(track, SamplesOfSpikes(track, spikes.Times), occupancy);

  MapResult result;
  result.Grid = RateMap(counted.Counts, occupancy);
  result.PixelsPerCm = positions.PixelsPerCm;
  result.MeanRate = MeanRate(result.Grid, occupancy);
  result.Information = SpatialInformation(result.Grid, occupancy);
  SetSpikes(result.Used, spikes);
  SetSamples(result.Used, positions, track);
  result.Used.SpikesUsed = counted.Mapped;
  result.Explanation = WhyNoTrack(positions, track, spikes.Range);
  if (result.Explanation.empty()) result.Explanation = WhyNoSpikes(result.Used, spikes.Range);
  return result;
}

MapResult OccupancyMapOf(const Positions& positions, const Track& track, const TimeRange& range) {
  MapResult result;
  result.Kind = MapKind::Occupancy;
  result.Grid = OccupancyMap(track, BinSize(positions.PixelsPerCm));
  result.PixelsPerCm = positions.PixelsPerCm;
  SetSamples(result.Used, positions, track);
  result.Explanation = WhyNoTrack(positions, track, range);
  return result;
}

MapResult ComputeRateMap(World& world, const std::filesystem::path& clusterFile, const std::filesystem::path& timeFile,
                         const std::filesystem::path& positionFile, const std::filesystem::path& outputFile) {
  const SpikeTimes spikes = ReadSpikeTimes(world, clusterFile, timeFile);
  const Positions positions = ReadPositions(positionFile, WorkPace(world));
  MapResult result = RateMapOf(positions, TrackWithin(positions, spikes.Range), spikes);
  WriteMapFile(result, outputFile);
  return result;
}

MapResult ComputeOccupancyMap(World& world, const std::filesystem::path& clusterFile,
                              const std::filesystem::path& positionFile, const std::filesystem::path& outputFile) {
  const TimeRange range = ReadTimeRange(clusterFile);
  const Positions positions = ReadPositions(positionFile, WorkPace(world));
  MapResult result = OccupancyMapOf(positions, TrackWithin(positions, range), range);
  WriteMapFile(result, outputFile);
  return result;
}

MapResult ComputeSpatialAutoCorr(World& world, const std::filesystem::path& rateMapFile) {
  MapResult result = ReadMapFile(rateMapFile);
  const Map rate = std::move(result.Grid);
  WorkPace pace(world);
  result.Kind = MapKind::SpatialAutocorrelation;
  result.Grid = SpatialAutocorrelation(rate, pace);
  if (result.Explanation.empty()) result.Explanation = WhyNoCorrelation(rate, result.Grid);
  WriteMapFile(result, FileUtility::RemoveExtension(rateMapFile) += ".2DAcorr");
  return result;
}

}  // namespace pallomir
