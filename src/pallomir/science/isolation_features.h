#pragma once

#include <array>
#include <memory>

#include "pallomir/science/cluster_quality.h"
#include "pallomir/science/wire_samples.h"

namespace pallomir {

/// Finds, on each wire, the first principal component of waveforms that are divided by the root of their sum of
/// squares; then measures spikes with it. A waveform of zeros stays one.
class IsolationFeatures {
 public:
  IsolationFeatures();
  ~IsolationFeatures();
  IsolationFeatures(const IsolationFeatures&) = delete;
  IsolationFeatures& operator=(const IsolationFeatures&) = delete;

  /// Lets a spike take part in the principal components.
  void Learn(const WireSamples& samples);

  /// Ends learning: finds the components, and makes room for `spikes` measured spikes.
  void FindComponents(size_t spikes);

  /// Writes down a spike's energy (root mean square of its samples, counts) and component on each wire.
  void Measure(const WireSamples& samples);

  /// Takes the measured features out: of each wire on which some measured spike was not all 0, energy and component.
  FeatureColumns TakeColumns();

 private:
  struct Components;
  std::unique_ptr<Components> components_;
  std::array<std::array<std::vector<float>, 2>, kWires> columns_;
  std::array<bool, kWires> recorded_{};
};

}  // namespace pallomir
