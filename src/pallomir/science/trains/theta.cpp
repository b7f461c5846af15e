#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <numeric>
#include <unsupported/Eigen/FFT>
#include <vector>

#include "pallomir/science/trains/train_measures.h"

namespace pallomir {

namespace {

constexpr int64_t kBin = 2'000;  // microseconds
constexpr size_t kLags = 251;
constexpr size_t kLength = 1 << 16;
/// Steps of the spectrum per hertz: 131.072, so that no bound below falls on a step.
constexpr double kStepsPerHertz = kLength * kBin * 1e-6;
constexpr auto kLowest = static_cast<size_t>(5 * kStepsPerHertz) + 1,
               kHighest = static_cast<size_t>(11 * kStepsPerHertz);
constexpr auto kAround = static_cast<size_t>(1 * kStepsPerHertz);
constexpr size_t kWhole = 125 * kLength * kBin / 1'000'000;

using Lags = std::array<double, kLags>;

void AddPairs(std::span<const int64_t> spikes, Lags& lags) {
  for (size_t i = 0; i < spikes.size(); ++i)
    for (size_t j = i + 1; j < spikes.size(); ++j) {
      const auto bin = static_cast<size_t>((spikes[j] - spikes[i] + kBin / 2) / kBin);
      if (bin >= kLags) break;
      ++lags[bin];
    }
}

/// The power of steps 0 to kWhole of the mirrored counts about their mean.
std::vector<double> PowerOf(const Lags& lags) {
  std::vector<double> mirrored(kLength);
  for (size_t k = 0; k < kLags; ++k) mirrored[kLags - 1 + k] = mirrored[kLags - 1 - k] = lags[k];
  const double mean = std::accumulate(mirrored.begin(), mirrored.end(), 0.0) / (2 * kLags - 1);
  for (size_t k = 0; k < 2 * kLags - 1; ++k) mirrored[k] -= mean;
  std::vector<std::complex<double>> spectrum;
  Eigen::FFT<double> transform;
  transform.fwd(spectrum, mirrored);
  std::vector<double> power(kWhole + 1);
  std::transform(spectrum.begin(), spectrum.begin() + kWhole + 1, power.begin(),
                 [](const std::complex<double>& value) { return std::norm(value); });
  return power;
}

double MeanOf(const std::vector<double>& power, size_t first, size_t last) {
  return std::accumulate(power.begin() + static_cast<std::ptrdiff_t>(first),
                         power.begin() + static_cast<std::ptrdiff_t>(last) + 1, 0.0) /
         static_cast<double>(last - first + 1);
}

}  // namespace

Theta ThetaOf(std::span<const int64_t> spikes, const LoadedTime& time) {
  Lags lags{};
  time.ForEachPart(spikes, [&](std::span<const int64_t> part) { AddPairs(part, lags); });
  lags[0] = *std::max_element(lags.begin() + 1, lags.end());
  if (std::all_of(lags.begin(), lags.end(), [&](double count) { return count == lags[0]; })) {
    const Measured flat = Measured::None("the autocorrelation is flat");
    return {flat, flat};
  }
  const std::vector<double> power = PowerOf(lags);
  const auto peak =
      static_cast<size_t>(std::max_element(power.begin() + kLowest, power.begin() + kHighest + 1) - power.begin());
  return {MeanOf(power, peak - kAround, peak + kAround) / MeanOf(power, 0, kWhole),
          static_cast<double>(peak) / kStepsPerHertz};
}

}  // namespace pallomir
