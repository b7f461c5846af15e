#include "pallomir/results/measure_columns.h"

#include <algorithm>
#include <string_view>

namespace pallomir {

namespace {

using Cluster = MeasuredCluster;

Measured Count(int64_t count) {
  return static_cast<double>(count);
}

Measured Known(const std::optional<double>& value) {
  return value ? Measured(*value) : Measured::None("too few spikes, or the features depend on each other");
}

const Field* LargestField(const Cluster& c) {
  return c.Behaviour.Place.Fields.empty() ? nullptr : &c.Behaviour.Place.Fields.front();
}

/// A value of the field with the highest peak.
template <double Field::*Member>
Measured OfField(const Cluster& c) {
  const Field* field = LargestField(c);
  return field ? Measured(field->*Member) : Measured::None("no field");
}

/// A level of one of the measures that are compared with chance.
template <ChanceLevel ChanceMeasures::*Which, Measured ChanceLevel::*Member>
Measured OfChance(const Cluster& c) {
  return c.Chance ? (*c.Chance).*Which.*Member : Measured::None("not compared with chance");
}

template <int Wire, Measured WaveformMeasures::Wire::*Member>
Measured OfWire(const Cluster& c) {
  return c.Waveform.Wires[Wire].*Member;
}

// The five columns of a measure against chance.
#define CHANCE(name, which)                                                                                          \
  {name "_p", "", "Probability of so large a value if the train had nothing to do with the behaviour",               \
   OfChance<&ChanceMeasures::which, &ChanceLevel::P>},                                                               \
      {name "_chance_mean", "", "Mean of the shifted trains", OfChance<&ChanceMeasures::which, &ChanceLevel::Mean>}, \
      {name "_z", "", "Standard deviations above the mean of the shifted trains",                                    \
       OfChance<&ChanceMeasures::which, &ChanceLevel::Z>},                                                           \
      {name "_chance_95", "", "95th percentile of the shifted trains",                                               \
       OfChance<&ChanceMeasures::which, &ChanceLevel::High95>},                                                      \
  {                                                                                                                  \
    name "_chance_99", "", "99th percentile of the shifted trains",                                                  \
        OfChance<&ChanceMeasures::which, &ChanceLevel::High99>                                                       \
  }

std::vector<MeasureColumn> AllColumns() {
  return {
      {"spikes", "", "Spikes within the loaded time", [](const Cluster& c) { return Count(c.Train.Spikes); }},
      {"rate", "Hz", "Spikes over the loaded time", [](const Cluster& c) { return c.Train.Rate; }},
      {"presence", "", "Share of 100 equal parts of the time in which the cell fired",
       [](const Cluster& c) { return c.Train.Presence; }},
      {"short_intervals", "", "Intervals below 2 ms", [](const Cluster& c) { return Count(c.Train.Refractory.Short); }},
      {"short_share", "", "Their share of all intervals",
       [](const Cluster& c) { return c.Train.Refractory.Share.Value; }},
      {"short_share_low", "", "Lower end of its 95 % interval",
       [](const Cluster& c) { return c.Train.Refractory.Share.Low; }},
      {"short_share_high", "", "Upper end of its 95 % interval",
       [](const Cluster& c) { return c.Train.Refractory.Share.High; }},
      {"contamination_one", "", "Share of foreign spikes if all come from one other cell (Hill et al. 2011)",
       [](const Cluster& c) { return c.Train.Refractory.ContaminationByOne.Value; }},
      {"contamination_one_low", "", "Lower end of its 95 % interval",
       [](const Cluster& c) { return c.Train.Refractory.ContaminationByOne.Low; }},
      {"contamination_one_high", "", "Upper end of its 95 % interval",
       [](const Cluster& c) { return c.Train.Refractory.ContaminationByOne.High; }},
      {"contamination_many", "", "Share of foreign spikes if they come from many cells (Llobet et al. 2022)",
       [](const Cluster& c) { return c.Train.Refractory.ContaminationByMany.Value; }},
      {"contamination_many_low", "", "Lower end of its 95 % interval",
       [](const Cluster& c) { return c.Train.Refractory.ContaminationByMany.Low; }},
      {"contamination_many_high", "", "Upper end of its 95 % interval",
       [](const Cluster& c) { return c.Train.Refractory.ContaminationByMany.High; }},
      {"burst_share", "", "Share of spikes with an interval below 6 ms before or after",
       [](const Cluster& c) { return c.Train.Bursts; }},
      {"cv", "", "Standard deviation of the intervals over their mean",
       [](const Cluster& c) { return c.Train.Variation; }},
      {"cv2", "", "The same for successive intervals, without slow changes of rate",
       [](const Cluster& c) { return c.Train.LocalVariation; }},
      {"theta_index", "", "Power around the theta peak over the mean power to 125 Hz",
       [](const Cluster& c) { return c.Train.ThetaIndex; }},
      {"theta_frequency", "Hz", "Frequency of that peak", [](const Cluster& c) { return c.Train.ThetaFrequency; }},
      {"peak_1", "uV", "Highest point of the mean waveform on wire 1", OfWire<0, &WaveformMeasures::Wire::Peak>},
      {"peak_2", "uV", "The same on wire 2", OfWire<1, &WaveformMeasures::Wire::Peak>},
      {"peak_3", "uV", "The same on wire 3", OfWire<2, &WaveformMeasures::Wire::Peak>},
      {"peak_4", "uV", "The same on wire 4", OfWire<3, &WaveformMeasures::Wire::Peak>},
      {"trough_1", "uV", "Lowest point after the peak on wire 1", OfWire<0, &WaveformMeasures::Wire::Trough>},
      {"trough_2", "uV", "The same on wire 2", OfWire<1, &WaveformMeasures::Wire::Trough>},
      {"trough_3", "uV", "The same on wire 3", OfWire<2, &WaveformMeasures::Wire::Trough>},
      {"trough_4", "uV", "The same on wire 4", OfWire<3, &WaveformMeasures::Wire::Trough>},
      {"largest_wire", "", "Wire with the largest mean waveform, from 1; the figures up to drift are its",
       [](const Cluster& c) {
         return c.Waveform.Largest < 0 ? Measured::None("no wire was recorded") : Count(c.Waveform.Largest + 1);
       }},
      {"peak_to_trough", "us", "Time from peak to trough", [](const Cluster& c) { return c.Waveform.PeakToTrough; }},
      {"width", "us", "Width of the peak at half its height", [](const Cluster& c) { return c.Waveform.Width; }},
      {"snr", "", "Span of the mean waveform over twice the noise",
       [](const Cluster& c) { return c.Waveform.SignalToNoise; }},
      {"amplitude_cutoff", "", "Share of spikes too small to be detected",
       [](const Cluster& c) { return c.Waveform.Cutoff; }},
      {"drift", "uV/h", "Change of the spikes' height", [](const Cluster& c) { return c.Waveform.Drift; }},
      {"excursion", "uV", "Largest difference of the medians that drift is computed from",
       [](const Cluster& c) { return c.Waveform.Excursion; }},
      {"isolation_distance", "", "Large is good (Schmitzer-Torbert et al. 2005)",
       [](const Cluster& c) { return Known(c.Apart.IsolationDistance); }},
      {"l_ratio", "", "Small is good (Schmitzer-Torbert et al. 2005)",
       [](const Cluster& c) { return Known(c.Apart.LRatio); }},
      {"d_prime", "", "Distance from the other spikes in standard deviations, along the best direction",
       [](const Cluster& c) { return c.Separate.Discriminability; }},
      {"neighbour_hits", "", "Share of the cluster's spikes among the neighbours of its spikes",
       [](const Cluster& c) { return c.Separate.NeighbourHits; }},
      {"neighbour_misses", "", "Share of the cluster's spikes among the neighbours of the others",
       [](const Cluster& c) { return c.Separate.NeighbourMisses; }},
      {"spikes_mapped", "", "Spikes with a position",
       [](const Cluster& c) { return Count(c.Behaviour.Place.SpikesUsed); }},
      {"information", "bits/spike", "Spatial information (Skaggs et al. 1993)",
       [](const Cluster& c) { return c.Behaviour.Place.BitsPerSpike; }},
      {"information_rate", "bits/s", "Spatial information times the mean rate",
       [](const Cluster& c) { return c.Behaviour.Place.BitsPerSecond; }},
      {"sparsity", "", "1 if the cell fires everywhere alike, near 0 in one small field",
       [](const Cluster& c) { return c.Behaviour.Place.Sparsity; }},
      {"selectivity", "", "Peak over mean rate", [](const Cluster& c) { return c.Behaviour.Place.Selectivity; }},
      {"coherence", "", "How alike neighbouring bins are, as Fisher's z",
       [](const Cluster& c) { return c.Behaviour.Place.Coherence; }},
      {"map_peak", "Hz", "Highest rate of the map", [](const Cluster& c) { return c.Behaviour.Place.PeakRate; }},
      {"map_mean", "Hz", "Mean rate of the map", [](const Cluster& c) { return c.Behaviour.Place.MeanRate; }},
      {"fields", "", "Firing fields",
       [](const Cluster& c) { return Count(static_cast<int64_t>(c.Behaviour.Place.Fields.size())); }},
      {"field_area", "cm2", "Area of the field with the highest peak", OfField<&Field::Area>},
      {"field_x", "cm", "Its centre, from the left of the map", OfField<&Field::X>},
      {"field_y", "cm", "Its centre, from the top of the map", OfField<&Field::Y>},
      {"field_rate", "Hz", "Rate in that field", OfField<&Field::Rate>},
      {"border_score", "", "1 if the cell fires along a wall (Solstad et al. 2008)",
       [](const Cluster& c) { return c.Behaviour.Place.Border; }},
      {"stability_halves", "", "Correlation of the maps of both halves",
       [](const Cluster& c) { return c.Behaviour.StabilityHalves; }},
      {"stability_minutes", "", "Correlation of the maps of odd and even minutes",
       [](const Cluster& c) { return c.Behaviour.StabilityMinutes; }},
      {"grid_score", "", "How hexagonal the map is (Sargolini et al. 2006; Langston et al. 2010)",
       [](const Cluster& c) { return c.Behaviour.Grid.Score; }},
      {"grid_spacing", "cm", "Distance of neighbouring fields",
       [](const Cluster& c) { return c.Behaviour.Grid.Spacing; }},
      {"grid_orientation", "degrees", "Of the axis closest to horizontal",
       [](const Cluster& c) { return c.Behaviour.Grid.Orientation; }},
      {"grid_ellipticity", "", "1 for a circle of fields",
       [](const Cluster& c) { return c.Behaviour.Grid.Ellipticity; }},
      {"spikes_directed", "", "Spikes with a direction",
       [](const Cluster& c) { return Count(c.Behaviour.Direction.SpikesUsed); }},
      {"vector_length", "", "R: 0 if the cell fires in all directions alike, 1 if in one",
       [](const Cluster& c) { return c.Behaviour.Direction.VectorLength; }},
      {"vector_direction", "degrees", "Of the mean vector",
       [](const Cluster& c) { return c.Behaviour.Direction.VectorDirection; }},
      {"rayleigh_p", "", "Rayleigh's test of R, which takes spikes as independent",
       [](const Cluster& c) { return c.Behaviour.Direction.RayleighP; }},
      {"direction_peak", "Hz", "Highest rate of the tuning curve",
       [](const Cluster& c) { return c.Behaviour.Direction.PeakRate; }},
      {"direction_width", "degrees", "Circular standard deviation of the tuning curve",
       [](const Cluster& c) { return c.Behaviour.Direction.Width; }},
      {"direction_information", "bits/spike", "Information about the direction",
       [](const Cluster& c) { return c.Behaviour.Direction.BitsPerSpike; }},
      {"direction_stability_halves", "", "Correlation of the curves of both halves",
       [](const Cluster& c) { return c.Behaviour.DirectionStabilityHalves; }},
      {"direction_stability_minutes", "", "Correlation of the curves of odd and even minutes",
       [](const Cluster& c) { return c.Behaviour.DirectionStabilityMinutes; }},
      {"speed_score", "", "Correlation of rate and running speed",
       [](const Cluster& c) { return c.Behaviour.Speed.Score; }},
      {"speed_slope", "Hz s/cm", "Change of the rate with speed",
       [](const Cluster& c) { return c.Behaviour.Speed.Slope; }},
      CHANCE("information", Information),
      {"information_above_chance", "bits/spike", "Information minus its mean under shifts",
       [](const Cluster& c) {
         return c.Chance ? c.Chance->InformationAboveChance : Measured::None("not compared with chance");
       }},
      CHANCE("grid", Grid),
      CHANCE("border", Border),
      CHANCE("vector_length", VectorLength),
      CHANCE("speed", Speed),
      {"speed_lower_p", "", "Probability of so small a value", OfChance<&ChanceMeasures::Speed, &ChanceLevel::LowerP>},
      CHANCE("stability", Stability),
  };
}

#undef CHANCE

}  // namespace

const std::vector<MeasureColumn>& MeasureColumns() {
  static const std::vector<MeasureColumn> columns = AllColumns();
  return columns;
}

int TestsPerCluster() {
  const auto& columns = MeasureColumns();
  return static_cast<int>(std::count_if(columns.begin(), columns.end(), [](const MeasureColumn& column) {
    return std::string_view(column.Name).ends_with("_p");
  }));
}

}  // namespace pallomir
