#pragma once

#include <cstdint>
#include <vector>

#include "pallomir/science/behaviour/tracking.h"

namespace pallomir {

struct SampleRow {
  int64_t Time;
  double X, Y;
  double Direction = kNotKnown;
};

/// The samples as the reader of position files returns them.
inline Positions PositionsOf(const std::vector<SampleRow>& rows) {
  Positions positions;
  positions.Name = "Pos.p";
  for (const SampleRow& row : rows) {
    const bool lost = row.X == 0 && row.Y == 0;
    positions.Time.push_back(row.Time);
    positions.X.push_back(lost ? kNotKnown : row.X);
    positions.Y.push_back(lost ? kNotKnown : row.Y);
    positions.Direction.push_back(lost ? kNotKnown : row.Direction);
    positions.HasDirection = positions.HasDirection || row.Direction > 0;
  }
  return positions;
}

/// The track of all of them.
inline Track TrackOf(const std::vector<SampleRow>& rows) {
  return TrackWithin(PositionsOf(rows), {-kFarthestStamp, kFarthestStamp});
}

}  // namespace pallomir
