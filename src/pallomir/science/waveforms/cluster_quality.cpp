#include "pallomir/science/waveforms/cluster_quality.h"

#include <Eigen/Core>
#include <algorithm>
#include <array>

#include "pallomir/files/platform.h"
#include "pallomir/science/statistics/chi_square.h"
#include "pallomir/science/waveforms/detail/whitening.h"

namespace pallomir {

namespace {

constexpr size_t kBlock = 512;
using Block = std::array<double, kBlock>;

/// The features of the cluster's spikes, one row per spike.
Eigen::MatrixXd MembersOf(const FeatureColumns& columns, std::span<const uint8_t> member, int64_t spikes) {
  Eigen::MatrixXd members(spikes, static_cast<Eigen::Index>(columns.size()));
  for (size_t f = 0; f < columns.size(); ++f) {
    Eigen::Index row = 0;
    for (size_t i = 0; i < member.size(); ++i)
      if (member[i]) members(row++, static_cast<Eigen::Index>(f)) = columns[f][i];
  }
  return members;
}

PALLOMIR_HOT_LOOP
void AddDistances(const double* values, double mean, double factor, size_t count, double* sums) {
  for (size_t i = 0; i < count; ++i) sums[i] += factor * (values[i] - mean);
}

PALLOMIR_HOT_LOOP
void AddSquares(const double* values, size_t count, double* sums) {
  for (size_t i = 0; i < count; ++i) sums[i] += values[i] * values[i];
}

/// D2 of `count` spikes, starting at spike `begin`.
void SquaredDistances(const FeatureColumns& columns, const Eigen::VectorXd& mean, const Eigen::MatrixXd& whitening,
                      size_t begin, size_t count, Block& squared) {
  squared.fill(0);
  Block along;
  for (Eigen::Index r = 0; r < whitening.rows(); ++r) {
    along.fill(0);
    for (Eigen::Index f = 0; f <= r; ++f)
      AddDistances(columns[static_cast<size_t>(f)].data() + begin, mean(f), whitening(r, f), count, along.data());
    AddSquares(along.data(), count, squared.data());
  }
}

}  // namespace

Isolation IsolationOf(const FeatureColumns& columns, std::span<const uint8_t> member, const Progress& progress) {
  Isolation result;
  result.Features = static_cast<int>(columns.size());
  result.Spikes = std::count_if(member.begin(), member.end(), [](uint8_t is) { return is != 0; });
  result.Others = static_cast<int64_t>(member.size()) - result.Spikes;
  if (result.Spikes <= result.Features || columns.empty()) return result;

  Eigen::MatrixXd members = MembersOf(columns, member, result.Spikes);
  const Eigen::VectorXd mean = members.colwise().mean();
  members.rowwise() -= mean.transpose();
  const Eigen::MatrixXd whitening =
      WhiteningOf(members.transpose() * members / static_cast<double>(members.rows() - 1));
  if (whitening.size() == 0) return result;

  std::vector<double> others;
  others.reserve(static_cast<size_t>(result.Others));
  double exceeding = 0;
  Block squared;
  for (size_t begin = 0; begin < member.size(); begin += kBlock) {
    progress.Reached(static_cast<double>(begin) / static_cast<double>(member.size()));
    const size_t count = std::min(kBlock, member.size() - begin);
    SquaredDistances(columns, mean, whitening, begin, count, squared);
    for (size_t i = 0; i < count; ++i) {
      if (member[begin + i]) continue;
      others.push_back(squared[i]);
      exceeding += ChiSquareSurvival(squared[i], result.Features);
    }
  }
  result.LRatio = exceeding / static_cast<double>(result.Spikes);
  if (result.Spikes > result.Others) return result;
  const auto nth = others.begin() + (result.Spikes - 1);
  std::nth_element(others.begin(), nth, others.end());
  result.IsolationDistance = *nth;
  return result;
}

}  // namespace pallomir
