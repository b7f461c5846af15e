#include "pallomir/science/behaviour/positions.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace pallomir {

namespace {

template <class T>
void Permute(std::vector<T>& column, const std::vector<size_t>& order) {
  std::vector<T> sorted(column.size());
  for (size_t i = 0; i < order.size(); ++i) sorted[i] = column[order[i]];
  column = std::move(sorted);
}

void SortByTime(Positions& positions) {
  std::vector<size_t> order(positions.Time.size());
  std::iota(order.begin(), order.end(), size_t{0});
  std::stable_sort(order.begin(), order.end(),
                   [&](size_t a, size_t b) { return positions.Time[a] < positions.Time[b]; });
  Permute(positions.Time, order);
  Permute(positions.X, order);
  Permute(positions.Y, order);
  Permute(positions.Direction, order);
}

void JudgeDirections(Positions& positions) {
  const std::vector<double>& direction = positions.Direction;
  positions.HasDirection = std::any_of(direction.begin(), direction.end(), [](double d) { return d > 0; });
  if (!positions.HasDirection) ForgetDirections(positions);
}

}  // namespace

void AppendSample(Positions& positions, const PositionSample& sample) {
  if (!positions.Time.empty() && sample.Time < positions.Time.back()) ++positions.Disordered;
  const bool lost = !(std::isfinite(sample.X) && std::isfinite(sample.Y)) || (sample.X == 0 && sample.Y == 0);
  const bool known = !lost && sample.Direction >= 0 && sample.Direction <= 360;
  positions.Time.push_back(sample.Time);
  positions.X.push_back(lost ? kNotKnown : sample.X);
  positions.Y.push_back(lost ? kNotKnown : sample.Y);
  positions.Direction.push_back(!known ? kNotKnown : sample.Direction == 360 ? 0 : sample.Direction);
}

void RepairSamples(Positions& positions) {
  if (positions.Disordered > 0) SortByTime(positions);
  JudgeDirections(positions);
}

void ForgetDirections(Positions& positions) {
  positions.HasDirection = false;
  std::fill(positions.Direction.begin(), positions.Direction.end(), kNotKnown);
}

void TurnAngles(Positions& positions) {
  for (double& direction : positions.Direction)
    if (!std::isnan(direction)) direction = HeadingOf(direction, positions.Angles);
}

}  // namespace pallomir
