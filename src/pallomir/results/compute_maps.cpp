#include "pallomir/results/compute_maps.h"
#include "pallomir/session/work_pace.h"

#include "pallomir/files/file_utility.h"
#include "pallomir/recorded/position_file.h"
#include "pallomir/results/explanations.h"
#include "pallomir/results/measure_settings_file.h"
#include "pallomir/science/behaviour/spatial_autocorrelation.h"

namespace pallomir {

MapResult RateMapOf(const Positions& positions, const Track& track, const SpikeTimes& spikes,
                    const MeasureSettings& settings) {
  const Map occupancy = OccupancyMap(track, BinSize(positions.PixelsPerCm, settings.Map));
  const SpikeMap counted = CountSpikes(track, SamplesOfSpikes(track, spikes.Times), occupancy);

  MapResult result;
  result.Grid = RateMap(counted.Counts, occupancy, settings.Map);
  result.PixelsPerCm = positions.PixelsPerCm;
  result.MeanRate = MeanRate(result.Grid, occupancy);
  result.Information = SpatialInformation(result.Grid, occupancy);
  SetSpikes(result.Used, spikes);
  SetSamples(result.Used, positions, track);
  result.Used.Settings = UnusualEntries(settings);
  result.Used.SpikesUsed = counted.Mapped;
  result.Explanation = WhyNoTrack(positions, track, spikes.Range);
  if (result.Explanation.empty()) result.Explanation = WhyNoSpikes(result.Used, spikes.Range);
  return result;
}

MapResult OccupancyMapOf(const Positions& positions, const Track& track, const TimeRange& range,
                         const MeasureSettings& settings) {
  MapResult result;
  result.Kind = MapKind::Occupancy;
  result.Grid = OccupancyMap(track, BinSize(positions.PixelsPerCm, settings.Map));
  result.PixelsPerCm = positions.PixelsPerCm;
  SetSamples(result.Used, positions, track);
  result.Used.Settings = UnusualEntries(settings);
  result.Explanation = WhyNoTrack(positions, track, range);
  return result;
}

MapResult ComputeRateMap(World& world, const std::filesystem::path& clusterFile, const std::filesystem::path& timeFile,
                         const std::filesystem::path& positionFile, const std::filesystem::path& outputFile) {
  const MeasureSettings settings = ReadMeasureSettings(clusterFile.parent_path());
  const SpikeTimes spikes = ReadSpikeTimes(world, clusterFile, timeFile);
  const Positions positions = ReadPositions(positionFile, WorkPace(world));
  MapResult result =
      RateMapOf(positions, TrackOver(positions, LoadedTime({spikes.Range}), settings.Map), spikes, settings);
  WriteMapFile(result, outputFile);
  return result;
}

MapResult ComputeOccupancyMap(World& world, const std::filesystem::path& clusterFile,
                              const std::filesystem::path& positionFile, const std::filesystem::path& outputFile) {
  const MeasureSettings settings = ReadMeasureSettings(clusterFile.parent_path());
  const TimeRange range = ReadTimeRange(clusterFile);
  const Positions positions = ReadPositions(positionFile, WorkPace(world));
  MapResult result =
      OccupancyMapOf(positions, TrackOver(positions, LoadedTime({range}), settings.Map), range, settings);
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
