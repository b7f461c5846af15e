#pragma once

#include <functional>
#include <string>
#include <vector>

#include "pallomir/results/measure_clusters.h"

namespace pallomir {

/// A measure of a cluster, as tables, files and windows show it.
struct MeasureColumn {
  std::string Name;     ///< "isolation_distance"
  std::string Unit;     ///< "Hz"; empty for a plain number
  std::string Meaning;  ///< a sentence for the user
  std::function<Measured(const MeasuredCluster& cluster)> Of;
  MeasurePart Part = MeasurePart::Train;  ///< of which it is
};

/// All measures that are single numbers, in the order in which they are shown; those against chance come last.
const std::vector<MeasureColumn>& MeasureColumns();

/// How many of the columns are probabilities of a test.
int TestsPerCluster();

}  // namespace pallomir
