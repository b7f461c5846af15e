#include "pallomir/science/waveforms/detail/whitening.h"

#include <Eigen/Cholesky>
#include <Eigen/Eigenvalues>

namespace pallomir {

Eigen::MatrixXd WhiteningOf(const Eigen::MatrixXd& covariance) {
  constexpr double smallest = 1e-10;  // rounding leaves some 1e-14 where features depend on each other
  if (covariance.size() == 0) return {};
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

}  // namespace pallomir
