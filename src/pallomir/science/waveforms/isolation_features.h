#pragma once

#include <array>
#include <memory>

#include "pallomir/science/waveforms/cluster_quality.h"
#include "pallomir/science/waveforms/wire_samples.h"

namespace pallomir {

/// Finds the first principal component of the waveforms on each wire, each waveform divided by the square root of its
/// sum of squares; then projects spikes onto it. A waveform of zeros stays zero.
class IsolationFeatures {
 public:
  IsolationFeatures();
  ~IsolationFeatures();
  IsolationFeatures(const IsolationFeatures&) = delete;
  IsolationFeatures& operator=(const IsolationFeatures&) = delete;

  /// Adds a spike to the data for the principal components.
  void Learn(const WireSamples& samples);

  /// Ends learning: computes the components and reserves memory for `spikes` measured spikes.
  void FindComponents(size_t spikes);

  /// Stores a spike's energy (root mean square of its samples, in counts) and component on each wire.
  void Measure(const WireSamples& samples);

  /// Moves the measured features out: energy and component of each wire on which some measured spike was not all 0.
  FeatureColumns TakeColumns();

 private:
  struct Components;
  std::unique_ptr<Components> components_;
  std::array<std::array<std::vector<double>, 2>, kWires> columns_;
  std::array<bool, kWires> recorded_{};
};

}  // namespace pallomir
