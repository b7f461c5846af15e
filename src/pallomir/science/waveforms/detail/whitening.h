#pragma once

// Not installed: only science/ sees Eigen.

#include <Eigen/Core>

namespace pallomir {

/// The matrix W for which the squares of W (x - mean) add up to the squared Mahalanobis distance: the inverse of the
/// covariance's Cholesky factor. Empty if the covariance is singular, which is judged on the correlation matrix, so
/// that the features' units don't matter.
Eigen::MatrixXd WhiteningOf(const Eigen::MatrixXd& covariance);

}  // namespace pallomir
