#pragma once

#include <string>
#include <vector>

#include "pallomir/components/components.h"
#include "pallomir/results/cluster_measures.h"
#include "pallomir/results/map_file.h"
#include "pallomir/results/report_series.h"
#include "pallomir/science/head_direction.h"
#include "pallomir/science/refractory.h"
#include "pallomir/science/tracking.h"
#include "pallomir/session/session.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// All that the one-page report shows of a cluster.
struct Report {
  MapResult Occupancy;
  MapResult Rate;
  Track Path;                     ///< where the animal went
  std::vector<int64_t> SampleOf;  ///< for each spike, its sample of Path, or -1
  ClusterLines Spikes;
  PlaceSeries Places;  ///< for each spike
  TrackedPoint Centre;
  bool CentreGiven = false;  ///< by the center file; else the middle of the tracked area
  ClusterMeasures Measures;
  RefractoryFigures Refractory;
  double MeanRate = kNotKnown;  ///< spikes a second over the time range
  DirectionTuning Direction;
  bool DirectionOfTravel = false;
  ClusterNote Note;
  std::string Remarks;  ///< what the reader has to know: what is missing, left out, out of order
};

/// Gathers the report of cluster `c` from its files. A center or notes file that is missing is no fault. Throws
/// CommandError where a file cannot be read, Interrupted when the user stops it.
Report MakeReport(World& world, const ReportFiles& files, int c);

}  // namespace pallomir
