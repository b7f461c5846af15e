#include "pallomir/science/behaviour/arena.h"

#include <cmath>

#include "pallomir/science/behaviour/spatial_autocorrelation.h"
#include "pallomir/science/parallel_for.h"
#include "pallomir/science/statistics/pearson.h"

namespace pallomir {

namespace {

/// The values of one measure in all shifts.
template <class Compared>
std::vector<double> ColumnOf(const std::vector<Compared>& rows, double Compared::*column) {
  std::vector<double> values;
  values.reserve(rows.size());
  for (const Compared& row : rows) values.push_back(row.*column);
  return values;
}

}  // namespace

Arena::Arena(const Positions& positions, LoadedTime time, const MeasureSettings& settings)
    : time_(std::move(time)),
      settings_(settings),
      pixelsPerCm_(positions.PixelsPerCm),
      track_(TrackOver(positions, time_, settings.Map)),
      occupancy_(OccupancyMap(track_, BinSize(pixelsPerCm_, settings.Map))),
      smooth_(Smoothed(occupancy_, settings.Map)),
      bins_(BinsOfSamples(track_, occupancy_)),
      grid_(occupancy_.Rows, occupancy_.Columns),
      directed_(track_.Direction, track_.Hold, settings.Direction),
      speed_(track_, settings.Map),
      halves_(Stability::Split::Halves, track_, bins_, occupancy_, time_, settings.Map),
      minutes_(Stability::Split::Minutes, track_, bins_, occupancy_, time_, settings.Map) {}

SpikeMap Arena::CountsOf(std::span<const int64_t> samples) const {
  SpikeMap spikes{occupancy_};
  std::fill(spikes.Counts.Values.begin(), spikes.Counts.Values.end(), 0.0);
  for (const int64_t i : samples) {
    if (i < 0 || bins_[static_cast<size_t>(i)] < 0) continue;
    ++spikes.Counts.Values[static_cast<size_t>(bins_[static_cast<size_t>(i)])];
    ++spikes.Mapped;
  }
  return spikes;
}

Map Arena::RateOf(std::span<const int64_t> spikes) const {
  return RateMap(CountsOf(SamplesOfSpikes(track_, spikes)).Counts, occupancy_, smooth_, settings_.Map);
}

DirectionTuning Arena::DirectionOf(std::span<const int64_t> spikes) const {
  return directed_.TuningOf(SamplesOfSpikes(track_, spikes));
}

Measured Arena::DirectionStability(Stability::Split split, std::span<const int64_t> samples) const {
  std::vector<int64_t> parts[2];
  std::vector<double> hold[2] = {track_.Hold, track_.Hold};
  const auto sideOf = [&](size_t i) { return Stability::SideOf(split, track_.Time[i], time_); };
  for (size_t i = 0; i < track_.Time.size(); ++i) hold[1 - sideOf(i)][i] = 0;
  for (const int64_t i : samples)
    if (i >= 0) parts[sideOf(static_cast<size_t>(i))].push_back(i);
  const auto first = DirectedSamples(track_.Direction, hold[0], settings_.Direction).TuningOf(parts[0]);
  const auto second = DirectedSamples(track_.Direction, hold[1], settings_.Direction).TuningOf(parts[1]);
  const double r = PearsonOf(first.Rate, second.Rate);
  return std::isnan(r) ? Measured::None("fewer than 20 directions in both parts, or a curve that does not vary")
                       : Measured(r);
}

BehaviourMeasures Arena::MeasuresOf(std::span<const int64_t> spikes) const {
  const std::vector<int64_t> samples = SamplesOfSpikes(track_, spikes);
  const SpikeMap counted = CountsOf(samples);
  const Map rate = RateMap(counted.Counts, occupancy_, smooth_, settings_.Map);
  BehaviourMeasures measures;
  measures.Place = PlaceMeasuresOf(counted.Counts, occupancy_, rate, counted.Mapped, pixelsPerCm_);
  measures.StabilityHalves = halves_.Of(samples);
  measures.StabilityMinutes = minutes_.Of(samples);
  measures.Grid = grid_.MeasuresOf(SpatialAutocorrelation(rate), pixelsPerCm_);
  measures.Direction = DirectionMeasuresOf(directed_.TuningOf(samples));
  measures.DirectionStabilityHalves = DirectionStability(Stability::Split::Halves, samples);
  measures.DirectionStabilityMinutes = DirectionStability(Stability::Split::Minutes, samples);
  measures.Speed = speed_.Of(samples);
  return measures;
}

Arena::Compared Arena::ComparedAt(std::span<const int64_t> samples) const {
  const Map rate = RateMap(CountsOf(samples).Counts, occupancy_, smooth_, settings_.Map);
  return {SpatialInformation(rate, occupancy_),  grid_.ScoreOf(SpatialAutocorrelation(rate)).Value,
          BorderScore(rate, pixelsPerCm_).Value, directed_.TuningOf(samples).VectorLength,
          speed_.Of(samples).Score.Value,        halves_.Of(samples).Value};
}

ChanceMeasures Arena::ChanceOf(std::span<const int64_t> spikes, const BehaviourMeasures& measures,
                               const Progress& progress) const {
  const std::vector<int64_t> shifts = CircularShifts(time_, settings_.Chance);
  const ShiftedTrain train(spikes, track_.Time, track_.Hold, time_);
  std::vector<Compared> shifted(shifts.size());
  ParallelFor(shifts.size(), progress, [&](size_t k) {
    std::vector<int64_t> samples;
    train.SamplesAt(shifts[k], samples);
    shifted[k] = ComparedAt(samples);
  });
  ChanceMeasures chance;
  chance.Information = ChanceLevelOf(measures.Place.BitsPerSpike.Value, ColumnOf(shifted, &Compared::Information));
  chance.InformationAboveChance = chance.Information.Mean.Known()
                                      ? Measured(measures.Place.BitsPerSpike.Value - chance.Information.Mean.Value)
                                      : chance.Information.Mean;
  chance.Grid = ChanceLevelOf(measures.Grid.Score.Value, ColumnOf(shifted, &Compared::Grid));
  chance.Border = ChanceLevelOf(measures.Place.Border.Value, ColumnOf(shifted, &Compared::Border));
  chance.VectorLength =
      ChanceLevelOf(measures.Direction.VectorLength.Value, ColumnOf(shifted, &Compared::VectorLength));
  chance.Speed = ChanceLevelOf(measures.Speed.Score.Value, ColumnOf(shifted, &Compared::Speed));
  chance.Stability = ChanceLevelOf(measures.StabilityHalves.Value, ColumnOf(shifted, &Compared::Stability));
  return chance;
}

}  // namespace pallomir
