#pragma once

#include <array>

#include "pallomir/files/number_text.h"
#include "pallomir/session/point_table.h"

namespace pallomir {

/// Formats the lines of cluster and time files from the columns.
class SpikeLines {
 public:
  /// `points` must outlive this object.
  explicit SpikeLines(const PointTable& points);

  /// Buffer size for a line, in characters.
  static constexpr size_t kRoom = 18 * (kNumberRoom + 1) + 2;

  /// Writes point i's line (17 parameters and the stamp, separated by commas) to `to` and returns its end.
  char* PutSpike(char* to, size_t i) const;

  /// Writes a line with point i's stamp only.
  char* PutStamp(char* to, size_t i) const;

 private:
  std::array<const float*, 17> columns_;
  const uint64_t* stamps_;
};

}  // namespace pallomir
