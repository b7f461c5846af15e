#include <algorithm>
#include <cmath>

#include "pallomir/science/behaviour/connected_bins.h"
#include "pallomir/science/behaviour/place_measures.h"

namespace pallomir {

namespace {

constexpr double kFieldShare = 0.3, kSmallestArea = 200;
constexpr int kWallReach = 8;

/// For each of the four walls, the bin next to it in each column or row that has one.
std::vector<std::vector<size_t>> WallsOf(const Map& rate) {
  std::vector<std::vector<size_t>> walls(4);
  const auto first = [&](std::vector<size_t>& wall, int length, auto bin) {
    for (int k = 0; k < std::min(kWallReach, length); ++k) {
      const size_t at = bin(k);
      if (std::isnan(rate.Values[at])) continue;
      wall.push_back(at);
      return;
    }
  };
  for (int column = 0; column < rate.Columns; ++column) {
    first(walls[0], rate.Rows, [&](int k) { return rate.Index(k, column); });
    first(walls[1], rate.Rows, [&](int k) { return rate.Index(rate.Rows - 1 - k, column); });
  }
  for (int row = 0; row < rate.Rows; ++row) {
    first(walls[2], rate.Columns, [&](int k) { return rate.Index(row, k); });
    first(walls[3], rate.Columns, [&](int k) { return rate.Index(row, rate.Columns - 1 - k); });
  }
  return walls;
}

double Coverage(const std::vector<size_t>& field, const std::vector<std::vector<size_t>>& walls) {
  double largest = 0;
  for (const std::vector<size_t>& wall : walls) {
    if (wall.empty()) continue;
    const auto covered = std::count_if(wall.begin(), wall.end(),
                                       [&](size_t bin) { return std::binary_search(field.begin(), field.end(), bin); });
    largest = std::max(largest, static_cast<double>(covered) / static_cast<double>(wall.size()));
  }
  return largest;
}

}  // namespace

Measured BorderScore(const Map& rate, double pixelsPerCm) {
  const double highest = PeakOf(rate).Value, side = rate.Bin / ScaleOf(pixelsPerCm);
  if (!(highest > 0)) return Measured::None("no spike on the map");
  const auto walls = WallsOf(rate);
  double coverage = 0, weighted = 0, weight = 0;
  for (const auto& field : ConnectedBins(rate, [&](double r) { return r > kFieldShare * highest; })) {
    if (static_cast<double>(field.size()) * side * side < kSmallestArea) continue;
    coverage = std::max(coverage, Coverage(field, walls));
    for (const size_t bin : field) {
      const size_t rowIndex = bin / rate.Columns, columnIndex = bin % rate.Columns;
      const double row = static_cast<double>(rowIndex) + 0.5, column = static_cast<double>(columnIndex) + 0.5;
      weighted += rate.Values[bin] * std::min({row, rate.Rows - row, column, rate.Columns - column});
      weight += rate.Values[bin];
    }
  }
  if (weight == 0) return {-1, "no field"};
  const double distance = weighted / weight / (std::min(rate.Rows, rate.Columns) / 2.0);
  return (coverage - distance) / (coverage + distance);
}

}  // namespace pallomir
