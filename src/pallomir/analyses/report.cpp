#include "pallomir/analyses/report.h"
#include "pallomir/session/work_pace.h"

#include <functional>

#include "pallomir/analyses/center_file.h"
#include "pallomir/files/error.h"
#include "pallomir/notes/cluster_notes.h"
#include "pallomir/recorded/position_file.h"
#include "pallomir/results/compute_direction.h"
#include "pallomir/results/compute_maps.h"
#include "pallomir/results/measure_settings_file.h"

namespace pallomir {

namespace {

constexpr double kMicroseconds = 1e6;

void AddRemark(Report& report, const std::string& sentence) {
  if (!sentence.empty()) report.Remarks += (report.Remarks.empty() ? "" : " ") + sentence;
}

/// Optional parts of the report that cannot be read are left out, with a remark.
void WherePossible(Report& report, const std::function<void()>& add) {
  try {
    add();
  } catch (const CommandError& error) {
    AddRemark(report, error.what());
  }
}

void AddPositions(Report& report, const std::string& centerFile) {
  report.Centre = MiddleOfTrackedArea(report.Path.X, report.Path.Y);
  WherePossible(report, [&] {
    const auto centre = ReadCenterFile(centerFile);
    if (!centre) return;
    report.Centre = {centre->X, centre->Y};
    report.CentreGiven = true;
  });
  report.SpikePositions =
      PositionsOfSpikes(SamplesOfSpikes(report.Path, report.Spikes.Time), report.Path.X, report.Path.Y, report.Centre);
}

std::string Counted(int64_t count, const char* one, const char* many) {
  return std::to_string(count) + (count == 1 ? one : many);
}

/// Of a time range without a length that makes sense only the intervals are known.
void AddTrain(Report& report, const SpikeTimes& spikes) {
  const bool timed = spikes.Range.MakesSense();
  const LoadedTime time({timed ? spikes.Range : TimeRange{-kFarthestStamp, kFarthestStamp}});
  report.Refractory = RefractoryMeasuresOf(spikes.Times, time, {.Censored = report.Measures.DeadTime});
  if (!timed) {
    const Measured none = Measured::None("the time range makes no sense");
    report.Refractory.ContaminationByOne = report.Refractory.ContaminationByMany = {none, none, none};
  } else if (time.Length() > 0) {
    report.MeanRate = static_cast<double>(spikes.Times.size()) / static_cast<double>(time.Length()) * kMicroseconds;
  }
}

void AddRemarks(Report& report, const std::string& whyNoDirection) {
  AddRemark(report, UsageText(report.Rate.Used));
  if (!report.CentreGiven)
    AddRemark(report, "Angles are measured about the centre of the tracked area: no center file was read.");
  if (report.DirectionOfTravel) AddRemark(report, "Directions are those of travel, not of the head.");
  if (whyNoDirection != report.Rate.Explanation) AddRemark(report, whyNoDirection);  // otherwise the map shows it
  if (report.Spikes.WithoutHeight > 0)
    AddRemark(report, Counted(report.Spikes.WithoutHeight, " spike has", " spikes have") +
                          " a peak that is not a number, so no height.");
  const ClusterMeasures& measures = report.Measures;
  if (!measures.InMicrovolts) AddRemark(report, "The spike file does not give the volts per count.");
  if (measures.Missing > 0)
    AddRemark(report, Counted(measures.Missing, " spike is", " spikes are") + " not in the spike file.");
  if (measures.Ambiguous > 0)
    AddRemark(report,
              Counted(measures.Ambiguous, " record of the spike file shares", " records of the spike file share") +
                  " a spike's timestamp.");
  if (measures.Unreadable > 0)
    AddRemark(report, Counted(measures.Unreadable, " record of the spike file has", " records of the spike file have") +
                          " an impossible timestamp.");
  if (measures.TrailingBytes > 0)
    AddRemark(report, "The spike file ends with an incomplete record of " +
                          Counted(measures.TrailingBytes, " byte.", " bytes."));
}

}  // namespace

Report MakeReport(World& world, const ReportFiles& files, int c, const std::filesystem::path& settingsFolder) {
  Report report;
  const SpikeTimes spikes = ReadSpikeTimes(world, files.ClusterFile, files.TimeFile);
  report.Spikes = ReadClusterLines(world, files.ClusterFile);
  const Positions positions = ReadPositions(files.PositionFile, WorkPace(world));
  const MeasureSettings settings =
      ReadMeasureSettings(settingsFolder.empty() ? files.ClusterFile.parent_path() : settingsFolder);
  report.Path = TrackOver(positions, LoadedTime({spikes.Range}), settings.Map);
  report.SampleOf = SamplesOfSpikes(report.Path, spikes.Times);
  report.Rate = RateMapOf(positions, report.Path, spikes, settings);
  report.Occupancy = OccupancyMapOf(positions, report.Path, spikes.Range, settings);
  const DirectionResult direction = DirectionOf(positions, report.Path, spikes, settings);
  report.Direction = direction.Tuning;
  report.DirectionOfTravel = direction.OfTravel;
  AddPositions(report, files.CenterFile);
  report.Measures = MeasureCluster(world, files.SpikeFile, spikes.Times, spikes.Range);
  WorkPace pace(world);
  report.Behaviour = Arena(positions, LoadedTime({spikes.Range}), settings).MeasuresOf(spikes.Times);
  pace.Reached(0.5);
  AddTrain(report, spikes);
  pace.Reached(0.9);
  WherePossible(report, [&] { report.Note = NotesIn(files.NotesFile)[c]; });
  AddRemarks(report, direction.Explanation);
  if (!spikes.Range.MakesSense())
    AddRemark(report, "The time range has an impossible start or end: mean rate and contamination are unknown.");
  return report;
}

}  // namespace pallomir
