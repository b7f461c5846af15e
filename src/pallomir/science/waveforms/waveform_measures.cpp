#include "pallomir/science/waveforms/waveform_measures.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "pallomir/science/statistics/cubic_spline.h"
#include "pallomir/science/statistics/line_fit.h"
#include "pallomir/science/statistics/median.h"

namespace pallomir {

namespace {

constexpr size_t kFewestForCutoff = 100;
constexpr size_t kDriftParts = 20;
constexpr size_t kFewestInPart = 5;
constexpr size_t kFewestParts = 3;

double SpanOf(const std::array<double, kWaveformSamples>& samples) {
  const auto [least, most] = std::minmax_element(samples.begin(), samples.end());
  return *most - *least;
}

int LargestWire(const AverageWaveform& average) {
  int largest = -1;
  for (int wire = 0; wire < kWires; ++wire)
    if (average.Recorded[wire] && (largest < 0 || SpanOf(average.Mean[wire]) > SpanOf(average.Mean[largest])))
      largest = wire;
  return largest;
}

void MeasureShape(const CubicSpline& curve, double samplingRate, WaveformMeasures& measures) {
  const CubicSpline::Point peak = curve.Highest();
  const double microseconds = samplingRate > 0 ? 1e6 / samplingRate : kNotKnown;
  const auto within = [&](double samples) {
    return samplingRate > 0 ? Measured(samples * microseconds) : Measured::None("the sampling rate is not known");
  };
  const auto trough = curve.LowestAfter(peak.X);
  measures.PeakToTrough = trough ? within(trough->X - peak.X) : Measured::None("nothing follows the peak");
  if (!(peak.Y > 0)) {
    measures.Width = Measured::None("the peak is not above 0");
    return;
  }
  const auto rise = curve.CrossingBefore(peak.X, peak.Y / 2), fall = curve.CrossingAfter(peak.X, peak.Y / 2);
  measures.Width = rise && fall ? within(*fall - *rise) : Measured::None("the peak is cut off");
}

Measured SignalToNoise(const AverageWaveform& average, int wire) {
  if (average.Spikes < 2) return Measured::None("fewer than two spikes");
  double squares = 0;
  for (const double deviation : average.Deviation[wire]) squares += deviation * deviation;
  const double noise = std::sqrt(squares / kWaveformSamples);
  return noise > 0 ? Measured(SpanOf(average.Mean[wire]) / (2 * noise)) : Measured::None("all waveforms are the same");
}

/// Median heights of equal parts of the loaded time, by the middle of the part in hours.
struct Medians {
  std::vector<double> Hours, Heights;
};

Medians MediansOf(const std::vector<int64_t>& times, const std::vector<double>& heights, const LoadedTime& time) {
  std::vector<std::vector<double>> parts(kDriftParts);
  for (size_t i = 0; i < times.size(); ++i) parts[time.ShareOf(times[i], kDriftParts)].push_back(heights[i]);
  const double hours = static_cast<double>(time.Length()) / 3600e6 / kDriftParts;
  Medians medians;
  for (size_t part = 0; part < kDriftParts; ++part) {
    if (parts[part].size() < kFewestInPart) continue;
    medians.Hours.push_back((static_cast<double>(part) + 0.5) * hours);
    medians.Heights.push_back(MedianOf(parts[part]));
  }
  return medians;
}

void MeasureDrift(const Medians& medians, WaveformMeasures& measures) {
  if (medians.Hours.size() < kFewestParts || !(medians.Hours.back() > medians.Hours.front())) {
    measures.Drift = measures.Excursion = Measured::None("spikes in too few parts of the time");
    return;
  }
  measures.Drift = SlopeOf(medians.Hours, medians.Heights);
  const auto [least, most] = std::minmax_element(medians.Heights.begin(), medians.Heights.end());
  measures.Excursion = *most - *least;
}

/// phi(x) / (1 - Phi(x)) of the normal distribution, for x <= 0.
double HazardAt(double x) {
  const double density = std::exp(-x * x / 2) / std::sqrt(2 * std::numbers::pi);
  return density / (std::erfc(x / std::numbers::sqrt2) / 2);
}

/// The variance over the squared mean of what a normal distribution has above a threshold at xi standard deviations,
/// taken from the threshold.
double RelativeVarianceAbove(double xi) {
  const double mean = HazardAt(xi) - xi;
  return (1 - mean * (mean + xi)) / (mean * mean);
}

}  // namespace

Measured AmplitudeCutoff(std::vector<double>& heights) {
  if (heights.size() < kFewestForCutoff) return Measured::None("fewer than 100 spikes");
  const auto quantile = heights.begin() + static_cast<std::ptrdiff_t>(heights.size() / 100);
  std::nth_element(heights.begin(), quantile, heights.end());
  const double threshold = *quantile;
  double count = 0, sum = 0, squares = 0;
  for (const double height : heights)
    if (height >= threshold) ++count, sum += height - threshold;
  const double mean = sum / count;
  if (!(mean > 0)) return Measured::None("all heights are the same");
  for (const double height : heights)
    if (height >= threshold) squares += (height - threshold - mean) * (height - threshold - mean);
  const double relative = squares / count / (mean * mean);
  if (relative >= std::numbers::pi / 2 - 1) return 0.5;
  double low = -1, high = 0;
  while (RelativeVarianceAbove(low) > relative) low *= 2;
  for (;;) {
    const double middle = low + (high - low) / 2;
    if (middle == low || middle == high) break;
    (RelativeVarianceAbove(middle) < relative ? low : high) = middle;
  }
  const double above = std::erfc(high / std::numbers::sqrt2) / 2;
  return std::clamp(1 - static_cast<double>(heights.size()) * above / count, 0.0, 0.5);
}

WaveformMeasures WaveformMeasuresOf(const AverageWaveform& average, const SpikeHeights& heights,
                                    const std::array<double, kWires>& microvolts, double samplingRate,
                                    const LoadedTime& time) {
  WaveformMeasures measures;
  measures.Largest = LargestWire(average);
  for (int wire = 0; wire < kWires; ++wire) {
    if (!average.Recorded[wire]) continue;
    const CubicSpline curve(average.Mean[wire]);
    const CubicSpline::Point peak = curve.Highest();
    const auto trough = curve.LowestAfter(peak.X);
    measures.Wires[wire] = {peak.Y, trough ? Measured(trough->Y) : Measured::None("nothing follows the peak")};
    if (wire == measures.Largest) MeasureShape(curve, samplingRate, measures);
  }
  if (measures.Largest < 0) return measures;
  measures.SignalToNoise = SignalToNoise(average, measures.Largest);
  std::vector<double> largest;
  for (const int16_t counts : heights.Counts[measures.Largest])
    largest.push_back(counts * microvolts[measures.Largest]);
  MeasureDrift(MediansOf(heights.Time, largest, time), measures);
  measures.Cutoff = AmplitudeCutoff(largest);
  return measures;
}

}  // namespace pallomir
