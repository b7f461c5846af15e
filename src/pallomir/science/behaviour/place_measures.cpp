#include "pallomir/science/behaviour/place_measures.h"

#include <algorithm>
#include <cmath>

#include "pallomir/science/behaviour/connected_bins.h"
#include "pallomir/science/statistics/pearson.h"

namespace pallomir {

namespace {

constexpr double kFieldShare = 0.2, kLowestFieldPeak = 1;
constexpr size_t kSmallestField = 9;
constexpr int64_t kMinute = 60'000'000;

constexpr const char* kSilent = "no spike on the map";

Field FieldFrom(std::vector<size_t> bins, const Map& counts, const Map& occupancy, const Map& rate, double side) {
  Field field;
  double weight = 0, spikes = 0, seconds = 0;
  for (const size_t bin : bins) {
    const double r = rate.Values[bin];
    const size_t row = bin / rate.Columns, column = bin % rate.Columns;
    field.X += r * (static_cast<double>(column) + 0.5) * side;
    field.Y += r * (static_cast<double>(row) + 0.5) * side;
    weight += r;
    field.Peak = std::max(field.Peak, r);
    spikes += counts.Values[bin];
    seconds += occupancy.Values[bin];
  }
  field.X /= weight;
  field.Y /= weight;
  field.Area = static_cast<double>(bins.size()) * side * side;
  field.Rate = spikes / seconds;
  field.Bins = std::move(bins);
  return field;
}

}  // namespace

PlaceMeasures PlaceMeasuresOf(const Map& counts, const Map& occupancy, const Map& rate, int64_t spikesUsed,
                              double pixelsPerCm) {
  PlaceMeasures measures;
  measures.SpikesUsed = spikesUsed;
  const double mean = MeanRate(rate, occupancy);
  measures.MeanRate = std::isnan(mean) ? Measured::None("no bin was visited") : Measured(mean);
  const double peak = PeakOf(rate).Value;
  measures.PeakRate = std::isnan(peak) ? Measured::None("no bin was visited") : Measured(peak);
  measures.Coherence = CoherenceOf(counts, occupancy, rate);
  measures.Border = BorderScore(rate, pixelsPerCm);
  if (!(mean > 0)) {
    measures.BitsPerSpike = measures.BitsPerSecond = measures.Sparsity = measures.Selectivity = Measured::None(kSilent);
    return measures;
  }
  double seconds = 0, squares = 0;
  for (size_t i = 0; i < rate.Values.size(); ++i) {
    if (std::isnan(rate.Values[i])) continue;
    seconds += occupancy.Values[i];
    squares += occupancy.Values[i] * rate.Values[i] * rate.Values[i];
  }
  measures.BitsPerSpike = SpatialInformation(rate, occupancy);
  measures.BitsPerSecond = measures.BitsPerSpike.Value * mean;
  measures.Sparsity = mean * mean / (squares / seconds);
  measures.Selectivity = peak / mean;
  measures.Fields = FieldsOf(counts, occupancy, rate, pixelsPerCm);
  return measures;
}

Measured CoherenceOf(const Map& counts, const Map& occupancy, const Map& rate) {
  std::vector<double> own(rate.Values.size(), kNotKnown), around(rate.Values.size(), kNotKnown);
  for (size_t i = 0; i < own.size(); ++i)
    if (!std::isnan(rate.Values[i])) own[i] = counts.Values[i] / occupancy.Values[i];
  for (int row = 0; row < rate.Rows; ++row)
    for (int column = 0; column < rate.Columns; ++column) {
      double sum = 0, neighbours = 0;
      for (int r = std::max(row - 1, 0); r <= std::min(row + 1, rate.Rows - 1); ++r)
        for (int c = std::max(column - 1, 0); c <= std::min(column + 1, rate.Columns - 1); ++c) {
          const double value = own[rate.Index(r, c)];
          if ((r != row || c != column) && !std::isnan(value)) sum += value, ++neighbours;
        }
      if (neighbours > 0) around[rate.Index(row, column)] = sum / neighbours;
    }
  const double r = PearsonOf(own, around);
  if (std::isnan(r)) return Measured::None("fewer than 20 visited bins, or all with the same rate");
  return std::abs(r) < 1 ? Measured(std::atanh(r)) : Measured::None("the correlation is perfect");
}

std::vector<Field> FieldsOf(const Map& counts, const Map& occupancy, const Map& rate, double pixelsPerCm) {
  const double highest = PeakOf(rate).Value, side = rate.Bin / ScaleOf(pixelsPerCm);
  std::vector<Field> fields;
  for (auto& bins : ConnectedBins(rate, [&](double r) { return r > 0 && r >= kFieldShare * highest; })) {
    if (bins.size() < kSmallestField) continue;
    Field field = FieldFrom(std::move(bins), counts, occupancy, rate, side);
    if (field.Peak >= kLowestFieldPeak) fields.push_back(std::move(field));
  }
  std::stable_sort(fields.begin(), fields.end(), [](const Field& a, const Field& b) { return a.Peak > b.Peak; });
  return fields;
}

uint8_t Stability::SideOf(Split split, int64_t stamp, const LoadedTime& time) {
  const int64_t at = time.At(stamp).value_or(0);
  return split == Split::Halves ? 2 * at >= time.Length() : at / kMinute % 2 != 0;
}

Stability::Stability(Split split, const Track& track, std::span<const int32_t> bins, const Map& frame,
                     const LoadedTime& time, const MapSettings& settings)
    : bins_(bins), settings_(settings), side_(track.Time.size()) {
  for (Side& side : sides_) {
    side.Occupancy = frame;
    std::fill(side.Occupancy.Values.begin(), side.Occupancy.Values.end(), 0.0);
  }
  for (size_t i = 0; i < side_.size(); ++i) {
    side_[i] = SideOf(split, track.Time[i], time);
    if (bins[i] >= 0) sides_[side_[i]].Occupancy.Values[static_cast<size_t>(bins[i])] += track.Hold[i];
  }
  for (Side& side : sides_) {
    for (double& value : side.Occupancy.Values) value /= 1e6;
    side.Smooth = Smoothed(side.Occupancy, settings);
  }
}

Measured Stability::Of(std::span<const int64_t> samples) const {
  Map counts[2] = {sides_[0].Occupancy, sides_[1].Occupancy};
  for (Map& map : counts) std::fill(map.Values.begin(), map.Values.end(), 0.0);
  for (const int64_t i : samples) {
    const auto sample = static_cast<size_t>(i);
    if (i >= 0 && bins_[sample] >= 0) ++counts[side_[sample]].Values[static_cast<size_t>(bins_[sample])];
  }
  const Map first = RateMap(counts[0], sides_[0].Occupancy, sides_[0].Smooth, settings_);
  const Map second = RateMap(counts[1], sides_[1].Occupancy, sides_[1].Smooth, settings_);
  const double r = PearsonOf(first.Values, second.Values);
  return std::isnan(r) ? Measured::None("fewer than 20 bins visited in both, or a map without variation") : Measured(r);
}

}  // namespace pallomir
