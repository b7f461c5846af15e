#include "pallomir/science/behaviour/grid_map.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "pallomir/files/error.h"
#include "pallomir/files/number_text.h"
#include "pallomir/science/statistics/add_scaled.h"

namespace pallomir {

namespace {

/// The range of the samples with a position, in bins counted from pixel 0.
struct Extent {
  double Low = std::numeric_limits<double>::infinity();
  double High = -std::numeric_limits<double>::infinity();

  Extent(const std::vector<double>& coordinates, double bin) {
    for (const double coordinate : coordinates) {
      if (std::isnan(coordinate)) continue;
      Low = std::min(Low, std::floor(coordinate / bin));
      High = std::max(High, std::floor(coordinate / bin));
    }
  }
  double Bins() const { return High - Low + 1; }
};

Map EmptyMap(const Track& track, double bin) {
  Map map;
  map.Bin = bin;
  const Extent x(track.X, bin), y(track.Y, bin);
  if (x.Low > x.High) return map;
  if (x.Bins() * y.Bins() > kMostBins)
    throw CommandError(ErrorKind::Refused, "The positions span " + DoubleText(x.Bins() * bin) + " x " +
                                               DoubleText(y.Bins() * bin) +
                                               " pixels, too much for a map with bins of " + DoubleText(bin) +
                                               " pixels. The likely reason is a position far outside the arena.");
  map.Columns = static_cast<int>(x.Bins());
  map.Rows = static_cast<int>(y.Bins());
  map.Left = x.Low * bin;
  map.Top = y.Low * bin;
  map.Values.assign(static_cast<size_t>(map.Columns) * map.Rows, 0);
  return map;
}

/// The index of the bin that contains a position of the track; the map covers all of them.
size_t BinAt(const Map& map, double x, double y) {
  const double column = std::floor(x / map.Bin) - map.Left / map.Bin;
  const double row = std::floor(y / map.Bin) - map.Top / map.Bin;
  return map.Index(static_cast<int>(row), static_cast<int>(column));
}

/// Smooths one row, with zeros beyond both ends.
void SmoothRow(const double* row, int columns, const std::vector<double>& weights, double* into) {
  const int radius = static_cast<int>(weights.size() / 2);
  for (int k = std::max(-radius, 1 - columns); k <= std::min(radius, columns - 1); ++k)
    AddScaled(row + std::max(k, 0), weights[k + radius], into + std::max(-k, 0),
              static_cast<size_t>(columns - std::abs(k)));
}

}  // namespace

double BinSize(double pixelsPerCm, const MapSettings& settings) {
  return std::max(std::round(settings.BinCm * ScaleOf(pixelsPerCm)), 1.0);
}

Map OccupancyMap(const Track& track, double bin) {
  Map map = EmptyMap(track, bin);
  for (size_t i = 0; i < track.Time.size(); ++i)
    if (!std::isnan(track.X[i])) map.Values[BinAt(map, track.X[i], track.Y[i])] += track.Hold[i];
  for (double& value : map.Values) value /= 1e6;
  return map;
}

SpikeMap CountSpikes(const Track& track, std::span<const int64_t> samples, const Map& occupancy) {
  SpikeMap spikes{occupancy};
  std::fill(spikes.Counts.Values.begin(), spikes.Counts.Values.end(), 0.0);
  for (const int64_t i : samples) {
    if (i < 0 || std::isnan(track.X[i])) continue;
    ++spikes.Counts.Values[BinAt(occupancy, track.X[i], track.Y[i])];
    ++spikes.Mapped;
  }
  return spikes;
}

std::vector<int32_t> BinsOfSamples(const Track& track, const Map& frame) {
  std::vector<int32_t> bins(track.Time.size(), -1);
  for (size_t i = 0; i < bins.size(); ++i)
    if (!std::isnan(track.X[i])) bins[i] = static_cast<int32_t>(BinAt(frame, track.X[i], track.Y[i]));
  return bins;
}

std::vector<double> GaussianWeights(double sigma) {
  if (sigma <= 0) return {1};
  const int radius = static_cast<int>(std::lround(4 * sigma));
  std::vector<double> weights;
  double sum = 0;
  for (int k = -radius; k <= radius; ++k) {
    weights.push_back(std::exp(-0.5 * k * k / (sigma * sigma)));
    sum += weights.back();
  }
  for (double& weight : weights) weight /= sum;
  return weights;
}

Map Smoothed(const Map& map, const MapSettings& settings) {
  if (settings.SmoothingBins <= 0) return map;
  const std::vector<double> weights = GaussianWeights(settings.SmoothingBins);
  const int radius = static_cast<int>(weights.size() / 2);
  std::vector<double> across(map.Values.size(), 0);
  for (int row = 0; row < map.Rows; ++row)
    SmoothRow(&map.Values[map.Index(row, 0)], map.Columns, weights, &across[map.Index(row, 0)]);
  Map smooth = map;
  std::fill(smooth.Values.begin(), smooth.Values.end(), 0.0);
  for (int row = 0; row < map.Rows; ++row)
    for (int k = std::max(-radius, -row); k <= std::min(radius, map.Rows - 1 - row); ++k)
      AddScaled(&across[map.Index(row + k, 0)], weights[k + radius], &smooth.Values[map.Index(row, 0)],
                static_cast<size_t>(map.Columns));
  return smooth;
}

Map RateMap(const Map& counts, const Map& occupancy, const MapSettings& settings) {
  return RateMap(counts, occupancy, Smoothed(occupancy, settings), settings);
}

Map RateMap(const Map& counts, const Map& occupancy, const Map& smoothOccupancy, const MapSettings& settings) {
  Map rate = Smoothed(counts, settings);
  for (size_t i = 0; i < rate.Values.size(); ++i)
    rate.Values[i] = IsVisited(occupancy.Values[i], settings) ? rate.Values[i] / smoothOccupancy.Values[i] : kNotKnown;
  return rate;
}

MapPeak PeakOf(const Map& map) {
  MapPeak peak;
  for (int row = 0; row < map.Rows; ++row)
    for (int column = 0; column < map.Columns; ++column)
      if (map.At(row, column) > peak.Value || (peak.Row < 0 && !std::isnan(map.At(row, column))))
        peak = {map.At(row, column), row, column};
  return peak;
}

double MeanRate(const Map& rate, const Map& occupancy) {
  double seconds = 0, spikes = 0;
  for (size_t i = 0; i < rate.Values.size(); ++i) {
    if (std::isnan(rate.Values[i])) continue;
    seconds += occupancy.Values[i];
    spikes += occupancy.Values[i] * rate.Values[i];
  }
  return seconds > 0 ? spikes / seconds : kNotKnown;
}

double SpatialInformation(const Map& rate, const Map& occupancy) {
  const double mean = MeanRate(rate, occupancy);
  if (!(mean > 0)) return kNotKnown;
  double seconds = 0, bits = 0;
  for (size_t i = 0; i < rate.Values.size(); ++i) {
    if (std::isnan(rate.Values[i])) continue;
    seconds += occupancy.Values[i];
    const double ratio = rate.Values[i] / mean;
    if (ratio > 0) bits += occupancy.Values[i] * ratio * std::log2(ratio);
  }
  return bits / seconds;
}

}  // namespace pallomir
