#pragma once

#include <array>

#include "pallomir/files/number_text.h"
#include "pallomir/session/point_table.h"

namespace pallomir {

/// The lines of cluster and time files, straight from the columns.
class SpikeLines {
 public:
  /// `points` must outlive it.
  explicit SpikeLines(const PointTable& points);

  /// Room for a line, in characters.
  static constexpr size_t kRoom = 18 * (kNumberRoom + 1) + 2;

  /// Puts point i's line (17 parameters and the stamp, separated by commas) at `to` and returns its end.
  char* PutSpike(char* to, size_t i) const;

  /// Puts the line of point i's stamp alone.
  char* PutStamp(char* to, size_t i) const;

 private:
  std::array<const float*, 17> columns_;
  const uint64_t* stamps_;
};

}  // namespace pallomir
