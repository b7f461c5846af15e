#include "pallomir/clusters/classify.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <numeric>
#include <string>
#include <vector>

#include "pallomir/clusters/keep_inside.h"
#include "pallomir/files/error.h"
#include "pallomir/files/platform.h"

namespace pallomir {

namespace {

/// Points processed at a time: their columns and flags stay in the first-level cache.
constexpr size_t kBlock = 2048;
using Flags = std::array<uint8_t, kBlock>;

/// Appends c to point i's list unless it is already in it.
void Join(PointTable& points, size_t i, int16_t c) {
  for (int slot = 0;; ++slot) {
    if (slot == points.SlotsInUse()) points.AddSlot();
    int16_t& entry = points.Slot(slot)[i];
    if (entry == c) return;
    if (entry != 0) continue;
    entry = c;
    return;
  }
}

/// Removes c from point i's list and closes the gap.
void Leave(PointTable& points, size_t i, int16_t c) {
  const int slots = points.SlotsInUse();
  int slot = 0;
  while (slot < slots && points.Slot(slot)[i] != c && points.Slot(slot)[i] != 0) ++slot;
  if (slot == slots || points.Slot(slot)[i] != c) return;
  for (; slot + 1 < slots; ++slot) points.Slot(slot)[i] = points.Slot(slot + 1)[i];
  points.Slot(slot)[i] = 0;
}

/// True if some point that is to join is already in another cluster.
PALLOMIR_HOT_LOOP
bool NeedsLists(const int16_t* first, const uint8_t* inside, size_t count, int16_t c) {
  int needs = 0;
  for (size_t i = 0; i < count; ++i)
    needs |= static_cast<int>(inside[i] != 0) & static_cast<int>(first[i] != 0) & static_cast<int>(first[i] != c);
  return needs != 0;
}

PALLOMIR_HOT_LOOP
void EnterFirstSlot(int16_t* first, const uint8_t* inside, size_t count, int16_t c) {
  for (size_t i = 0; i < count; ++i) {
    const int16_t kept = first[i] == c ? int16_t{0} : first[i];
    first[i] = inside[i] ? c : kept;
  }
}

/// Marks the points whose slot contains c.
PALLOMIR_HOT_LOOP
void MarkMembers(const int16_t* slot, size_t count, int16_t c, uint8_t* member) {
  for (size_t i = 0; i < count; ++i) member[i] = static_cast<uint8_t>(member[i] | static_cast<int>(slot[i] == c));
}

/// Updates the lists of points begin..begin+count-1 from their flags.
void Enter(PointTable& points, size_t begin, size_t count, const Flags& inside, int16_t c) {
  if (points.SlotsInUse() == 0) points.AddSlot();
  int16_t* first = points.Slot(0).data() + begin;
  if (points.SlotsInUse() == 1 && !NeedsLists(first, inside.data(), count, c)) {
    EnterFirstSlot(first, inside.data(), count, c);
    return;
  }
  // Visit only the lists of points that join or leave.
  Flags member{};
  for (int slot = 0; slot < points.SlotsInUse() && points.Entered(c); ++slot)
    MarkMembers(points.Slot(slot).data() + begin, count, c, member.data());
  for (size_t i = 0; i < count; ++i) member[i] ^= inside[i];
  const uint8_t* const changes = member.data();
  const uint8_t* const end = changes + count;
  for (const uint8_t* change = changes;; ++change) {
    change = static_cast<const uint8_t*>(std::memchr(change, 1, static_cast<size_t>(end - change)));
    if (!change) return;
    const auto i = static_cast<size_t>(change - changes);
    if (inside[i])
      Join(points, begin + i, c);
    else
      Leave(points, begin + i, c);
  }
}

/// The points of a block that are inside all boundaries so far. Only these are gathered and tested against the next
/// boundary.
class Survivors {
 public:
  /// Tests against one more boundary; `count` is the block's number of points for the second boundary, otherwise 0.
  /// Returns false if no point is left.
  bool KeepInside(const Boundary& boundary, const float* x, const float* y, size_t count, Flags& inside) {
    if (count > 0) {
      std::iota(indices_.begin(), indices_.begin() + count, uint16_t{0});
      left_ = count;
    }
    size_t kept = 0;
    for (size_t k = 0; k < left_; ++k) {
      const uint16_t index = indices_[k];
      indices_[kept] = index;
      kept += inside[index];
    }
    left_ = kept;
    if (left_ == 0) return false;
    for (size_t k = 0; k < left_; ++k) x_[k] = x[indices_[k]];
    for (size_t k = 0; k < left_; ++k) y_[k] = y[indices_[k]];
    std::fill_n(flags_.begin(), left_, uint8_t{1});
    pallomir::KeepInside(boundary, x_.data(), y_.data(), left_, flags_.data());
    for (size_t k = 0; k < left_; ++k) inside[indices_[k]] = flags_[k];
    return true;
  }

 private:
  size_t left_ = 0;
  std::array<uint16_t, kBlock> indices_;
  std::array<float, kBlock> x_, y_;
  Flags flags_;
};

/// Marks the points whose value is not finite.
PALLOMIR_HOT_LOOP
void MarkNotFinite(const float* values, size_t count, uint8_t* odd) {
  constexpr float kLargest = std::numeric_limits<float>::max();
  for (size_t i = 0; i < count; ++i)
    odd[i] = static_cast<uint8_t>(odd[i] | static_cast<int>(!(std::abs(values[i]) <= kLargest)));
}

/// The parameters of a cluster's boundaries, without duplicates.
std::vector<int16_t> ParametersOf(const Cluster& cluster) {
  std::vector<int16_t> parameters;
  for (int b = 0; b < cluster.BoundaryCount; ++b)
    for (const int16_t p : {cluster.Boundaries[b].XParameter, cluster.Boundaries[b].YParameter})
      if (std::find(parameters.begin(), parameters.end(), p) == parameters.end()) parameters.push_back(p);
  return parameters;
}

void CheckCluster(int c) {
  if (c < 0 || c > kClusters)
    throw CommandError(ErrorKind::Refused, "Cluster " + std::to_string(c) + " does not exist.");
}

void ShowReached(const Progress& progress, const PointTable& points, size_t begin) {
  progress.Reached(static_cast<double>(begin) / static_cast<double>(points.Rows()));
}

void RemoveFromLists(PointTable& points, int c, const Progress& progress) {
  if (!points.Entered(c)) return;
  const Flags none{};
  for (size_t begin = 0; begin < points.Rows(); begin += kBlock) {
    ShowReached(progress, points, begin);
    Enter(points, begin, std::min(kBlock, points.Rows() - begin), none, static_cast<int16_t>(c));
  }
  points.SetEntered(c, false);
}

}  // namespace

void ClassifyCluster(Session& session, int c, const Progress& progress) {
  CheckCluster(c);
  const Cluster& cluster = session.Clusters[c];
  PointTable& points = session.Points;
  if (cluster.BoundaryCount == 0) {
    RemoveFromLists(points, c, progress);
    return;
  }
  Flags inside;
  Survivors survivors;
  for (size_t begin = 0; begin < points.Rows(); begin += kBlock) {
    const size_t count = std::min(kBlock, points.Rows() - begin);
    ShowReached(progress, points, begin);
    inside.fill(1);
    for (int b = 0; b < cluster.BoundaryCount; ++b) {
      const Boundary& boundary = cluster.Boundaries[b];
      const float* x = points.Column(boundary.XParameter).data() + begin;
      const float* y = points.Column(boundary.YParameter).data() + begin;
      if (b == 0)
        KeepInside(boundary, x, y, count, inside.data());
      else if (!survivors.KeepInside(boundary, x, y, b == 1 ? count : 0, inside))
        break;
    }
    Enter(points, begin, count, inside, static_cast<int16_t>(c));
  }
  points.SetEntered(c, true);
}

void ClassifyClusters(Session& session, const ByCluster<bool>& wanted, const Progress& progress) {
  const auto steps = static_cast<int>(std::count(wanted.begin() + 1, wanted.end(), true));
  int step = 0;
  for (int c = 1; c <= kClusters; ++c) {
    if (!wanted[c]) continue;
    ClassifyCluster(session, c, progress.Step(step++, steps));
  }
}

void ClassifyAllClusters(Session& session, const Progress& progress) {
  ByCluster<bool> all;
  all.fill(true);
  ClassifyClusters(session, all, progress);
}

void ClearCluster(Session& session, int c, const Progress& progress) {
  CheckCluster(c);
  if (session.Clusters[c].BoundaryCount == 0) return;
  session.Clusters[c] = {};
  RemoveFromLists(session.Points, c, progress);
}

int64_t PointsInCluster(const Session& session, int c) {
  const PointTable& points = session.Points;
  const auto end = static_cast<std::ptrdiff_t>(points.Rows());
  if (points.SlotsInUse() == 0) return c == 0 ? end : 0;
  if (c == 0) return std::count(points.Slot(0).begin(), points.Slot(0).begin() + end, 0);
  int64_t count = 0;
  for (int slot = 0; slot < points.SlotsInUse(); ++slot)
    count += std::count(points.Slot(slot).begin(), points.Slot(slot).begin() + end, c);
  return count;
}

int64_t PointsNotFinite(const Session& session, int c) {
  CheckCluster(c);
  const PointTable& points = session.Points;
  if (!points.Entered(c)) return 0;
  const std::vector<int16_t> parameters = ParametersOf(session.Clusters[c]);
  int64_t found = 0;
  for (size_t begin = 0; begin < points.Rows(); begin += kBlock) {
    const size_t count = std::min(kBlock, points.Rows() - begin);
    Flags odd{}, member{};
    for (const int16_t p : parameters) MarkNotFinite(points.Column(p).data() + begin, count, odd.data());
    for (int slot = 0; slot < points.SlotsInUse(); ++slot)
      MarkMembers(points.Slot(slot).data() + begin, count, static_cast<int16_t>(c), member.data());
    for (size_t i = 0; i < count; ++i) found += odd[i] & member[i];
  }
  return found;
}

}  // namespace pallomir
