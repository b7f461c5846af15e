#include "analyses/report.h"

#include <functional>

#include "analyses/center_file.h"
#include "components/explanations.h"
#include "files/error.h"
#include "notes/cluster_notes.h"

namespace pallomir {

namespace {

constexpr double kMicroseconds = 1e6;

void AddMaps(Report& report, const Positions& positions, const SpikeTimes& spikes) {
  const Map occupancy = OccupancyMap(report.Path, BinSize(positions.PixelsPerCm));
  const SpikeMap counted = CountSpikes(report.Path, report.SampleOf, occupancy);
  report.Rate.Grid = RateMap(counted.Counts, occupancy);
  report.Rate.MeanRate = MeanRate(report.Rate.Grid, occupancy);
  report.Rate.Information = SpatialInformation(report.Rate.Grid, occupancy);
  SetSpikes(report.Rate.Used, spikes);
  SetSamples(report.Rate.Used, positions, report.Path);
  report.Rate.Used.SpikesUsed = counted.Mapped;
  report.Rate.Explanation = WhyNoTrack(positions, report.Path, spikes.Range);
  report.Occupancy.Explanation = report.Rate.Explanation;
  if (report.Rate.Explanation.empty()) report.Rate.Explanation = WhyNoSpikes(report.Rate.Used, spikes.Range);
  report.Occupancy.Kind = MapKind::Occupancy;
  report.Occupancy.Grid = occupancy;
  report.Occupancy.PixelsPerCm = report.Rate.PixelsPerCm = positions.PixelsPerCm;
}

void AddDirection(Report& report, const Positions& positions) {
  const double slowest = positions.PixelsPerCm > 0 ? kSlowestTravelCm * positions.PixelsPerCm : kSlowestTravelPixels;
  report.DirectionOfTravel = !positions.HasDirection;
  report.Direction =
      TuningOf(report.DirectionOfTravel ? DirectionsOfTravel(report.Path, slowest) : report.Path.Direction,
               report.Path.Hold, report.SampleOf);
}

void AddRemark(Report& report, const std::string& sentence) {
  if (!sentence.empty()) report.Remarks += (report.Remarks.empty() ? "" : " ") + sentence;
}

/// What only adds to the report is left out where it cannot be read, and said so.
void WherePossible(Report& report, const std::function<void()>& add) {
  try {
    add();
  } catch (const CommandError& error) {
    AddRemark(report, error.what());
  }
}

void AddPlaces(Report& report, const std::string& centerFile) {
  report.Centre = MiddleOfTrackedArea(report.Path.X, report.Path.Y);
  WherePossible(report, [&] {
    const auto centre = ReadCenterFile(centerFile);
    if (!centre) return;
    report.Centre = {centre->X, centre->Y};
    report.CentreGiven = true;
  });
  report.Places =
      PlacesOfSpikes(SamplesOfSpikes(report.Path, report.Spikes.Time), report.Path.X, report.Path.Y, report.Centre);
}

void AddRemarks(Report& report) {
  AddRemark(report, UsageText(report.Rate.Used));
  if (!report.CentreGiven)
    AddRemark(report, "Angles are about the middle of the tracked area: no center file was read.");
  if (report.DirectionOfTravel) AddRemark(report, "Directions are those of travel.");
  if (!report.Measures.InMicrovolts) AddRemark(report, "The spike file does not say what a count is worth.");
  if (report.Measures.Missing > 0)
    AddRemark(report, std::to_string(report.Measures.Missing) + " spikes are not in the spike file.");
  if (report.Measures.Ambiguous > 0)
    AddRemark(report, std::to_string(report.Measures.Ambiguous) + " records of the spike file share a spike's stamp.");
}

}  // namespace

Report MakeReport(World& world, const ReportFiles& files, int c) {
  Report report;
  const SpikeTimes spikes = ReadSpikeTimes(world, files.ClusterFile, files.TimeFile);
  report.Spikes = ReadClusterLines(world, files.ClusterFile);
  const Positions positions = ReadPositions(world, files.PositionFile);
  report.Path = TrackWithin(positions, spikes.Range);
  report.SampleOf = SamplesOfSpikes(report.Path, spikes.Times);
  AddMaps(report, positions, spikes);
  AddDirection(report, positions);
  AddPlaces(report, files.CenterFile);
  report.Measures = MeasureCluster(world, files.SpikeFile, spikes.Times, spikes.Range.First, spikes.Range.Last);
  const auto duration = static_cast<double>(spikes.Range.Last - spikes.Range.First);
  report.Refractory = RefractoryFiguresOf(spikes.Times, duration, {2000, report.Measures.DeadTime});
  if (duration > 0) report.MeanRate = static_cast<double>(spikes.Times.size()) / duration * kMicroseconds;
  WherePossible(report, [&] { report.Note = NotesIn(files.NotesFile)[c]; });
  AddRemarks(report);
  return report;
}

}  // namespace pallomir
