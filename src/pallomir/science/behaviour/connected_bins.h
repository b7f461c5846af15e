#pragma once

#include <algorithm>
#include <vector>

#include "pallomir/science/behaviour/grid_map.h"

namespace pallomir {

/// The bins for which inside(value) is true, in groups joined by their sides; the indices of each group ascend, and the
/// groups are in the order of their first bins.
template <class Inside>
std::vector<std::vector<size_t>> ConnectedBins(const Map& map, Inside inside) {
  std::vector<std::vector<size_t>> groups;
  std::vector<bool> taken(map.Values.size());
  for (size_t start = 0; start < map.Values.size(); ++start) {
    if (taken[start] || !inside(map.Values[start])) continue;
    std::vector<size_t> group{start};
    taken[start] = true;
    for (size_t next = 0; next < group.size(); ++next) {
      const int row = static_cast<int>(group[next] / map.Columns), column = static_cast<int>(group[next] % map.Columns);
      const auto visit = [&](int r, int c) {
        if (r < 0 || r >= map.Rows || c < 0 || c >= map.Columns) return;
        const size_t bin = map.Index(r, c);
        if (taken[bin] || !inside(map.Values[bin])) return;
        taken[bin] = true;
        group.push_back(bin);
      };
      visit(row - 1, column);
      visit(row, column - 1);
      visit(row, column + 1);
      visit(row + 1, column);
    }
    std::sort(group.begin(), group.end());
    groups.push_back(std::move(group));
  }
  return groups;
}

}  // namespace pallomir
