#include "pallomir/results/compute_direction.h"

#include "pallomir/recorded/position_file.h"
#include "pallomir/session/work_pace.h"

#include <string>

#include "pallomir/files/number_text.h"
#include "pallomir/results/explanations.h"
#include "pallomir/results/measure_settings_file.h"

namespace pallomir {

namespace {

std::string WhyNoDirection(const Positions& positions, const DirectionTuning& tuning) {
  if (tuning.Coverage > 0) return {};
  if (positions.HasDirection) return "No position sample within the time range has a direction.";
  const std::string speed = positions.PixelsPerCm > 0 ? DoubleText(kSlowestTravelCm) + " cm/s"
                                                      : DoubleText(kSlowestTravelPixels) + " pixels/s";
  return positions.Name + " contains no directions, and the animal never travelled faster than " + speed + ".";
}

}  // namespace

DirectionResult DirectionOf(const Positions& positions, const Track& track, const SpikeTimes& spikes,
                            const MeasureSettings& settings) {
  DirectionResult result;
  result.OfTravel = !positions.HasDirection;
  result.Tuning =
      DirectedSamples(track.Direction, track.Hold, settings.Direction).TuningOf(SamplesOfSpikes(track, spikes.Times));
  SetSpikes(result.Used, spikes);
  SetSamples(result.Used, positions, track);
  result.Used.Settings = UnusualEntries(settings);
  result.Used.SpikesUsed = result.Tuning.SpikesUsed;
  result.Explanation = WhyNoTrack(positions, track, spikes.Range);
  if (result.Explanation.empty()) result.Explanation = WhyNoDirection(positions, result.Tuning);
  if (result.Explanation.empty()) result.Explanation = WhyNoSpikes(result.Used, spikes.Range);
  return result;
}

DirectionResult ComputeDirection(World& world, const std::filesystem::path& timeFile,
                                 const std::filesystem::path& positionFile, const std::filesystem::path& clusterFile) {
  const MeasureSettings settings = ReadMeasureSettings(clusterFile.parent_path());
  const SpikeTimes spikes = ReadSpikeTimes(world, clusterFile, timeFile);
  const Positions positions = ReadPositions(positionFile, WorkPace(world));
  DirectionResult result =
      DirectionOf(positions, TrackOver(positions, LoadedTime({spikes.Range}), settings.Map), spikes, settings);
  std::filesystem::path output = timeFile;
  WriteDirectionFile(result, output += ".dir");
  return result;
}

}  // namespace pallomir
