#include "pallomir/science/waveforms/cluster_quality.h"

#include <Eigen/Cholesky>
#include <Eigen/Eigenvalues>
#include <algorithm>
#include <array>

#include "pallomir/files/platform.h"
#include "pallomir/science/statistics/chi_square.h"

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

/// The matrix W for which the squares of W (x - mean) add up to D2: the inverse of the covariance's Cholesky factor.
/// Empty if the covariance is singular, which is judged on the correlation matrix, so that the features' units don't
/// matter.
Eigen::MatrixXd WhiteningOf(const Eigen::MatrixXd& centred) {
  constexpr double smallest = 1e-10;  // rounding leaves some 1e-14 where features depend on each other
  const Eigen::MatrixXd covariance = centred.transpose() * centred / static_cast<double>(centred.rows() - 1);
  const Eigen::VectorXd scale = covariance.diagonal().cwiseSqrt();
  if (!(scale.minCoeff() > 0) || !covariance.allFinite()) return {};
  const Eigen::VectorXd unscale = scale.cwiseInverse();
  const Eigen::MatrixXd correlation = unscale.asDiagonal() * covariance * unscale.asDiagonal();
  const Eigen::SelfAdjointEigenSolver<Eigen::MatrixXd> eigen(correlation, Eigen::EigenvaluesOnly);
  if (eigen.info() != Eigen::Success || !(eigen.eigenvalues().minCoeff() > smallest)) return {};
  const Eigen::LLT<Eigen::MatrixXd> factor(correlation);
  const Eigen::MatrixXd identity = Eigen::MatrixXd::Identity(correlation.rows(), correlation.cols());
  return factor.matrixL().solve(identity) * unscale.asDiagonal();
}

PALLOMIR_HOT_LOOP
void AddDistances(const float* values, double mean, double factor, size_t count, double* sums) {
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
  if (result.Spikes > result.Others || result.Spikes <= result.Features || columns.empty()) return result;

  Eigen::MatrixXd members = MembersOf(columns, member, result.Spikes);
  const Eigen::VectorXd mean = members.colwise().mean();
  members.rowwise() -= mean.transpose();
  const Eigen::MatrixXd whitening = WhiteningOf(members);
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
  const auto nth = others.begin() + (result.Spikes - 1);
  std::nth_element(others.begin(), nth, others.end());
  result.IsolationDistance = *nth;
  result.LRatio = exceeding / static_cast<double>(result.Spikes);
  return result;
}

}  // namespace pallomir
