#pragma once

#include <QString>
#include <vector>

#include "pallomir/live/live_cut.h"
#include "pallomir/results/measure_columns.h"

namespace pallomir {

/// A measure as windows show it, with the ends of its interval if it has one.
struct ShownMeasure {
  const MeasureColumn* Value;
  const MeasureColumn* Low = nullptr;
  const MeasureColumn* High = nullptr;

  /// "Isolation distance".
  QString Caption() const;
  /// What it is, with its unit, for a tooltip.
  QString Meaning(bool inMicrovolts) const;
  /// "12.3", "0.004 (0.001–0.01)"; "…" before it was first measured, "-" if there is none.
  QString Text(const LiveCluster& cluster) const;
  /// Why there is no value, or that it is of an earlier cut; otherwise empty.
  QString Remark(const LiveCluster& cluster, const LiveCut& cut) const;
  bool IsFresh(const LiveCluster& cluster) const { return cluster.Fresh[IndexOf(Value->Part)]; }
};

/// All measures but those of single wires and those against chance.
const std::vector<ShownMeasure>& ShownMeasures();

}  // namespace pallomir
