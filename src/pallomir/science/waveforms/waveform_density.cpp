#include "pallomir/science/waveforms/waveform_density.h"

#include <algorithm>

namespace pallomir {

WaveformDensity DensityOf(std::span<const WireSamples> waveforms, int wire, int columns, int rows, double low,
                          double high) {
  WaveformDensity density{columns, rows, low, high, std::vector<uint32_t>(static_cast<size_t>(columns) * rows)};
  const double scale = rows / (high - low);
  const auto rowOf = [&](double counts) {
    return static_cast<int>(std::clamp((high - counts) * scale, -1.0, static_cast<double>(rows)));
  };
  for (const WireSamples& waveform : waveforms) {
    const auto& samples = waveform[wire];
    int before = rowOf(samples.front());
    for (int column = 0; column < columns; ++column) {
      const double at = columns > 1 ? static_cast<double>(column) * (kWaveformSamples - 1) / (columns - 1) : 0;
      const int left = std::min(static_cast<int>(at), kWaveformSamples - 2);
      const int row = rowOf(samples[left] + (at - left) * (samples[left + 1] - samples[left]));
      // Steep parts pass through all rows since the last column.
      const int from = row > before ? before + 1 : row, to = row < before ? before - 1 : row;
      for (int r = std::max(from, 0); r <= std::min(to, rows - 1); ++r)
        ++density.Passes[static_cast<size_t>(r) * columns + column];
      before = row;
    }
  }
  return density;
}

SampleRange RangeOfSamples(std::span<const WireSamples> waveforms) {
  std::vector<int16_t> all;
  all.reserve(waveforms.size() * kWires * kWaveformSamples);
  for (const WireSamples& waveform : waveforms)
    for (const auto& wire : waveform) all.insert(all.end(), wire.begin(), wire.end());
  if (all.empty()) return {};
  const auto rest = static_cast<std::ptrdiff_t>(all.size() / 1000);
  std::nth_element(all.begin(), all.begin() + rest, all.end());
  const double low = all[rest];
  std::nth_element(all.begin(), all.end() - 1 - rest, all.end());
  return {low, static_cast<double>(*(all.end() - 1 - rest))};
}

}  // namespace pallomir
