#include "pallomir/science/waveforms/nearest_spikes.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

#include "pallomir/files/platform.h"

namespace pallomir {

namespace {

constexpr size_t kBoxful = 64;

PALLOMIR_HOT_LOOP
void AddSquaredDistances(const double* values, double from, size_t count, double* sums) {
  for (size_t i = 0; i < count; ++i) sums[i] += (values[i] - from) * (values[i] - from);
}

/// A squared distance and a point's index: the order of neighbours.
using Neighbour = std::pair<double, size_t>;

}  // namespace

NearestSpikes::NearestSpikes(const FeatureColumns& points)
    : points_(points), index_(points.front().size()), place_(points.front().size()) {
  std::iota(index_.begin(), index_.end(), size_t{0});
  Split(0, index_.size());
  for (size_t d = 0; d < points.size(); ++d)
    for (size_t i = 0; i < index_.size(); ++i) points_[d][i] = points[d][index_[i]];
  for (size_t i = 0; i < index_.size(); ++i) place_[index_[i]] = i;
}

void NearestSpikes::Split(size_t begin, size_t end) {
  // Until all boxes are made, points_ is in the order of the indices.
  const auto first = index_.begin() + static_cast<std::ptrdiff_t>(begin);
  const auto last = index_.begin() + static_cast<std::ptrdiff_t>(end);
  Box box{begin, end, {}, {}};
  size_t widest = 0;
  for (size_t d = 0; d < points_.size(); ++d) {
    const auto [low, high] =
        std::minmax_element(first, last, [&](size_t a, size_t b) { return points_[d][a] < points_[d][b]; });
    box.Low.push_back(points_[d][*low]);
    box.High.push_back(points_[d][*high]);
    if (box.High[d] - box.Low[d] > box.High[widest] - box.Low[widest]) widest = d;
  }
  if (end - begin <= kBoxful) {
    boxes_.push_back(std::move(box));
    return;
  }
  const size_t middle = begin + (end - begin) / 2;
  std::nth_element(first, index_.begin() + static_cast<std::ptrdiff_t>(middle), last,
                   [&](size_t a, size_t b) { return points_[widest][a] < points_[widest][b]; });
  Split(begin, middle);
  Split(middle, end);
}

std::vector<size_t> NearestSpikes::Of(size_t index) const {
  const size_t self = place_[index];
  std::vector<Neighbour> order(boxes_.size());
  for (size_t b = 0; b < boxes_.size(); ++b) {
    order[b] = {0, b};
    for (size_t d = 0; d < points_.size(); ++d) {
      const double x = points_[d][self];
      const double away = std::max({boxes_[b].Low[d] - x, 0.0, x - boxes_[b].High[d]});
      order[b].first += away * away;
    }
  }
  std::sort(order.begin(), order.end());

  std::vector<Neighbour> nearest;  // in order
  std::array<double, kBoxful> squared;
  for (const auto& [away, b] : order) {
    if (nearest.size() == kNearest && away > nearest.back().first) break;
    const Box& box = boxes_[b];
    squared.fill(0);
    for (const std::vector<double>& column : points_)
      AddSquaredDistances(&column[box.Begin], column[self], box.End - box.Begin, squared.data());
    for (size_t i = box.Begin; i < box.End; ++i) {
      const Neighbour found{squared[i - box.Begin], index_[i]};
      if (i == self || (nearest.size() == kNearest && nearest.back() < found)) continue;
      nearest.insert(std::upper_bound(nearest.begin(), nearest.end(), found), found);
      if (nearest.size() > kNearest) nearest.pop_back();
    }
  }
  std::vector<size_t> indices;
  indices.reserve(nearest.size());
  for (const Neighbour& found : nearest) indices.push_back(found.second);
  return indices;
}

}  // namespace pallomir
