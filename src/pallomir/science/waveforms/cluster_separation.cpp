#include "pallomir/science/waveforms/cluster_separation.h"

#include <algorithm>
#include <cmath>

#include "pallomir/science/waveforms/detail/whitening.h"
#include "pallomir/science/waveforms/nearest_spikes.h"

namespace pallomir {

namespace {

constexpr size_t kMostDrawn = 5'000;
constexpr const char* kDependent = "the features depend on each other";

using Vector = Eigen::Map<const Eigen::VectorXd>;
using Matrix = Eigen::Map<const Eigen::MatrixXd>;

Vector MeanOf(const FeatureMoments& moments) {
  return {moments.Mean.data(), static_cast<Eigen::Index>(moments.Mean.size())};
}

Matrix ScatterOf(const FeatureMoments& moments) {
  const auto features = static_cast<Eigen::Index>(moments.Mean.size());
  return {moments.Scatter.data(), features, features};
}

/// The moments of the spikes begin..end-1 of a list that spike(i) gives, in blocks.
template <class Spike>
FeatureMoments Gather(const FeatureColumns& columns, size_t count, Spike spike) {
  constexpr size_t block = 1024;
  const size_t features = columns.size();
  FeatureMoments moments{static_cast<double>(count), std::vector<double>(features),
                         std::vector<double>(features * features)};
  if (count == 0) return moments;
  for (size_t f = 0; f < features; ++f) {
    for (size_t i = 0; i < count; ++i) moments.Mean[f] += columns[f][spike(i)];
    moments.Mean[f] /= moments.Count;
  }
  Eigen::MatrixXd rows(block, features);
  Eigen::Map<Eigen::MatrixXd> scatter(moments.Scatter.data(), static_cast<Eigen::Index>(features),
                                      static_cast<Eigen::Index>(features));
  for (size_t begin = 0; begin < count; begin += block) {
    const size_t size = std::min(block, count - begin);
    for (size_t f = 0; f < features; ++f)
      for (size_t i = 0; i < size; ++i)
        rows(static_cast<Eigen::Index>(i), static_cast<Eigen::Index>(f)) =
            columns[f][spike(begin + i)] - moments.Mean[f];
    const auto filled = rows.topRows(static_cast<Eigen::Index>(size));
    scatter.noalias() += filled.transpose() * filled;
  }
  return moments;
}

std::vector<size_t> SpikesIn(std::span<const uint8_t> member, bool inside) {
  std::vector<size_t> spikes;
  for (size_t i = 0; i < member.size(); ++i)
    if ((member[i] != 0) == inside) spikes.push_back(i);
  return spikes;
}

/// The moments of the spikes that are not in `part`.
FeatureMoments Without(const FeatureMoments& all, const FeatureMoments& part) {
  FeatureMoments rest = all;
  rest.Count = all.Count - part.Count;
  if (!(rest.Count > 0)) return rest;
  const size_t features = all.Mean.size();
  for (size_t f = 0; f < features; ++f)
    rest.Mean[f] = (all.Count * all.Mean[f] - part.Count * part.Mean[f]) / rest.Count;
  const double weight = part.Count * rest.Count / all.Count;
  for (size_t f = 0; f < features; ++f)
    for (size_t g = 0; g < features; ++g)
      rest.Scatter[f * features + g] -=
          part.Scatter[f * features + g] + weight * (part.Mean[f] - rest.Mean[f]) * (part.Mean[g] - rest.Mean[g]);
  return rest;
}

Measured DiscriminabilityOf(const FeatureMoments& one, const FeatureMoments& other) {
  if (one.Count < 2 || other.Count < 2) return Measured::None("fewer than two spikes on a side");
  const Eigen::MatrixXd whitening = WhiteningOf(ScatterOf(one) + ScatterOf(other));
  if (whitening.size() == 0) return Measured::None(kDependent);
  const Eigen::VectorXd apart = MeanOf(one) - MeanOf(other);
  const Eigen::VectorXd along = whitening.transpose() * (whitening * apart);
  const double variances =
      along.dot(ScatterOf(one) * along) / (one.Count - 1) + along.dot(ScatterOf(other) * along) / (other.Count - 1);
  return variances > 0 ? std::abs(along.dot(apart)) / std::sqrt(variances / 2) : 0;
}

/// Appends some spikes, thinned evenly.
void AppendDrawn(const std::vector<size_t>& spikes, std::vector<size_t>& drawn) {
  const size_t count = std::min(spikes.size(), kMostDrawn);
  for (size_t i = 0; i < count; ++i) drawn.push_back(spikes[i * spikes.size() / count]);
}

/// The features of the drawn spikes, each divided by its standard deviation over all spikes.
FeatureColumns Standardised(const FeatureColumns& columns, const std::vector<size_t>& drawn,
                            const FeatureMoments& all) {
  FeatureColumns scaled;
  for (size_t f = 0; f < columns.size(); ++f) {
    const double deviation = std::sqrt(all.Scatter[f * columns.size() + f] / (all.Count - 1));
    if (!(deviation > 0)) continue;
    scaled.emplace_back();
    for (const size_t spike : drawn) scaled.back().push_back(columns[f][spike] / deviation);
  }
  return scaled;
}

/// The share of the first `members` points among the neighbours of points begin..end-1.
double ShareOfMembers(const NearestSpikes& nearest, size_t members, size_t begin, size_t end,
                      const Progress& progress) {
  constexpr size_t kLook = 64;
  size_t hits = 0;
  for (size_t i = begin; i < end; ++i) {
    for (const size_t neighbour : nearest.Of(i)) hits += neighbour < members;
    if (i % kLook == 0) progress.Reached(static_cast<double>(i - begin) / static_cast<double>(end - begin));
  }
  return static_cast<double>(hits) / static_cast<double>((end - begin) * NearestSpikes::kNearest);
}

void CountNeighbours(const FeatureColumns& columns, std::span<const uint8_t> member, const FeatureMoments& all,
                     const Progress& progress, Separation& separation) {
  const std::vector<size_t> inside = SpikesIn(member, true), outside = SpikesIn(member, false);
  separation.NeighbourHits = separation.NeighbourMisses = Measured::None("too few spikes on a side");
  if (std::min(inside.size(), outside.size()) <= NearestSpikes::kNearest) return;
  std::vector<size_t> drawn;
  AppendDrawn(inside, drawn);
  const size_t members = drawn.size();
  AppendDrawn(outside, drawn);
  const FeatureColumns points = Standardised(columns, drawn, all);
  separation.NeighbourHits = separation.NeighbourMisses = Measured::None("all spikes have the same features");
  if (points.empty()) return;
  const NearestSpikes nearest(points);
  separation.NeighbourHits = ShareOfMembers(nearest, members, 0, members, progress.Part(0, 0.5));
  separation.NeighbourMisses = ShareOfMembers(nearest, members, members, drawn.size(), progress.Part(0.5, 1));
}

}  // namespace

FeatureMoments MomentsOf(const FeatureColumns& columns) {
  return Gather(columns, columns.empty() ? 0 : columns.front().size(), [](size_t i) { return i; });
}

FeatureMoments MomentsOf(const FeatureColumns& columns, std::span<const uint8_t> member) {
  const std::vector<size_t> spikes = SpikesIn(member, true);
  return Gather(columns, spikes.size(), [&](size_t i) { return spikes[i]; });
}

Separation SeparationOf(const FeatureColumns& columns, std::span<const uint8_t> member, const FeatureMoments& all,
                        const FeatureMoments& cluster, const Progress& progress) {
  Separation separation;
  separation.Discriminability = DiscriminabilityOf(cluster, Without(all, cluster));
  CountNeighbours(columns, member, all, progress, separation);
  return separation;
}

Measured ClusterDistance(const FeatureMoments& one, const FeatureMoments& other) {
  if (one.Count < 2 || other.Count < 2) return Measured::None("fewer than two spikes in a cluster");
  const Eigen::MatrixXd whitening = WhiteningOf((ScatterOf(one) + ScatterOf(other)) / (one.Count + other.Count - 2));
  if (whitening.size() == 0) return Measured::None(kDependent);
  return (whitening * (MeanOf(one) - MeanOf(other))).norm();
}

}  // namespace pallomir
