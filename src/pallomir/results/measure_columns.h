#pragma once

#include <span>
#include <vector>

#include "pallomir/results/measure_clusters.h"

namespace pallomir {

/// A measure of a cluster, as tables, files and windows show it.
struct MeasureColumn {
  const char* Name;     ///< "isolation_distance"
  const char* Unit;     ///< "Hz"; empty for a plain number
  const char* Meaning;  ///< a sentence for the user
  Measured (*Of)(const MeasuredCluster& cluster);
};

/// All measures that are single numbers, in the order in which they are shown; those against chance come last.
const std::vector<MeasureColumn>& MeasureColumns();

/// How many of the columns are probabilities of a test.
int TestsPerCluster();

}  // namespace pallomir
