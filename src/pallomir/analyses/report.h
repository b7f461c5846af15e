#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "pallomir/components/components.h"
#include "pallomir/results/cluster_measures.h"
#include "pallomir/results/map_file.h"
#include "pallomir/results/report_series.h"
#include "pallomir/science/behaviour/arena.h"
#include "pallomir/science/behaviour/head_direction.h"
#include "pallomir/science/behaviour/tracking.h"
#include "pallomir/science/trains/refractory.h"
#include "pallomir/session/session.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// The content of the one-page report of a cluster.
struct Report {
  MapResult Occupancy;
  MapResult Rate;
  Track Path;                     ///< the animal's track
  std::vector<int64_t> SampleOf;  ///< for each spike, the index of its sample in Path, or -1
  ClusterLines Spikes;
  PositionSeries SpikePositions;  ///< for each spike
  Position Centre;
  bool CentreGiven = false;  ///< from the center file; otherwise the centre of the tracked area
  ClusterMeasures Measures;
  RefractoryMeasures Refractory;
  BehaviourMeasures Behaviour;
  double MeanRate = kNotKnown;  ///< spikes per second over the time range
  DirectionTuning Direction;
  bool DirectionOfTravel = false;
  ClusterNote Note;
  std::string Remarks;  ///< what the reader must know: data that is missing, skipped or out of order
};

/// Builds the report of cluster `c` from its files. The center and notes files are optional. The settings are those of
/// `settingsFolder`, or else of the folder of the cluster file. Throws CommandError if a file cannot be read,
/// Interrupted when the user stops it.
Report MakeReport(World& world, const ReportFiles& files, int c, const std::filesystem::path& settingsFolder = {});

}  // namespace pallomir
