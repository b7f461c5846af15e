#include "pallomir/science/waveforms/isolation_features.h"

#include <Eigen/Eigenvalues>
#include <cmath>

#include "pallomir/files/platform.h"

namespace pallomir {

namespace {

constexpr int kBatch = 256;
using Shape = Eigen::Matrix<double, kWaveformSamples, 1>;

struct Sums {
  double Squares;
  double Product;  ///< with a component
};

/// Sums over a waveform, in lanes so that the compiler can vectorise the loop.
PALLOMIR_HOT_LOOP
Sums SumsOf(const int16_t* samples, const double* component) {
  constexpr int lanes = 8;
  double squares[lanes] = {}, products[lanes] = {};
  for (int s = 0; s < kWaveformSamples; s += lanes)
    for (int k = 0; k < lanes; ++k) {
      const double sample = samples[s + k];
      squares[k] += sample * sample;
      products[k] += sample * component[s + k];
    }
  Sums sums{};
  for (int k = 0; k < lanes; ++k) {
    sums.Squares += squares[k];
    sums.Product += products[k];
  }
  return sums;
}

/// A waveform divided by the square root of its sum of squares.
Shape Normalised(const std::array<int16_t, kWaveformSamples>& samples) {
  const Shape shape = Eigen::Map<const Eigen::Matrix<int16_t, kWaveformSamples, 1>>(samples.data()).cast<double>();
  const double norm = shape.norm();
  return norm > 0 ? Shape(shape / norm) : shape;
}

/// Sums for a covariance, in batches.
struct Moments {
  Eigen::MatrixXd Batch = Eigen::MatrixXd(kWaveformSamples, kBatch);
  int Filled = 0;
  double Count = 0;
  Eigen::VectorXd Sum = Eigen::VectorXd::Zero(kWaveformSamples);
  Eigen::MatrixXd Squares = Eigen::MatrixXd::Zero(kWaveformSamples, kWaveformSamples);

  void Add(const Shape& shape) {
    Batch.col(Filled) = shape;
    if (++Filled == kBatch) Finish();
  }
  void Finish() {
    const auto batch = Batch.leftCols(Filled);
    Sum += batch.rowwise().sum();
    Squares += batch * batch.transpose();
    Count += Filled;
    Filled = 0;
  }
  /// The direction of largest variance, as a unit vector.
  Shape FirstComponent() {
    Finish();
    if (Count == 0) return Shape::Zero();
    const Eigen::VectorXd mean = Sum / Count;
    const Eigen::SelfAdjointEigenSolver<Eigen::MatrixXd> eigen(Squares / Count - mean * mean.transpose());
    return eigen.eigenvectors().col(kWaveformSamples - 1);
  }
};

}  // namespace

struct IsolationFeatures::Components {
  std::array<Moments, kWires> Learnt;
  std::array<Shape, kWires> First;
};

IsolationFeatures::IsolationFeatures() : components_(std::make_unique<Components>()) {}
IsolationFeatures::~IsolationFeatures() = default;

void IsolationFeatures::Learn(const WireSamples& samples) {
  for (int wire = 0; wire < kWires; ++wire) components_->Learnt[wire].Add(Normalised(samples[wire]));
}

void IsolationFeatures::FindComponents(size_t spikes) {
  for (int wire = 0; wire < kWires; ++wire) {
    components_->First[wire] = components_->Learnt[wire].FirstComponent();
    for (auto& column : columns_[wire]) column.reserve(spikes);
  }
}

void IsolationFeatures::Measure(const WireSamples& samples) {
  for (int wire = 0; wire < kWires; ++wire) {
    const Sums sums = SumsOf(samples[wire].data(), components_->First[wire].data());
    const bool any = sums.Squares > 0;
    recorded_[wire] |= any;
    columns_[wire][0].push_back(std::sqrt(sums.Squares / kWaveformSamples));
    columns_[wire][1].push_back(any ? sums.Product / std::sqrt(sums.Squares) : 0);
  }
}

FeatureColumns IsolationFeatures::TakeColumns() {
  FeatureColumns columns;
  for (int wire = 0; wire < kWires; ++wire)
    if (recorded_[wire])
      for (auto& column : columns_[wire]) columns.push_back(std::move(column));
  return columns;
}

}  // namespace pallomir
