#include "pallomir/results/measure_columns.h"

#include <algorithm>

namespace pallomir {

namespace {

using Cluster = MeasuredCluster;
using Columns = std::vector<MeasureColumn>;

Measured Count(int64_t count) {
  return static_cast<double>(count);
}

Measured Known(const std::optional<double>& value) {
  return value ? Measured(*value) : Measured::None("too few spikes, or the features depend on each other");
}

void Add(Columns& columns, Columns more) {
  columns.insert(columns.end(), more.begin(), more.end());
}

/// A value and the ends of its interval.
void AddEstimate(Columns& columns, const std::string& name, const std::string& meaning,
                 Estimate RefractoryMeasures::*which) {
  const auto of = [which](Measured Estimate::*part) {
    return [which, part](const Cluster& c) { return c.Train.Refractory.*which.*part; };
  };
  Add(columns, {{name, "", meaning, of(&Estimate::Value)},
                {name + "_low", "", "Lower end of its 95 % interval", of(&Estimate::Low)},
                {name + "_high", "", "Upper end of its 95 % interval", of(&Estimate::High)}});
}

MeasureColumn OfWire(const std::string& name, const std::string& meaning, int wire,
                     Measured WaveformMeasures::Wire::*which) {
  const std::string number = std::to_string(wire + 1);
  return {name + "_" + number, "uV", meaning + " on wire " + number,
          [wire, which](const Cluster& c) { return c.Waveform.Wires[wire].*which; }};
}

/// A measure of the waveform on each wire.
void AddWires(Columns& columns, const std::string& name, const std::string& meaning,
              Measured WaveformMeasures::Wire::*which) {
  for (int wire = 0; wire < kWires; ++wire) columns.push_back(OfWire(name, meaning, wire, which));
}

/// A value of the field with the highest peak.
MeasureColumn OfField(const char* name, const char* unit, const char* meaning, double Field::*which) {
  return {name, unit, meaning, [which](const Cluster& c) {
            const auto& fields = c.Behaviour.Place.Fields;
            return fields.empty() ? Measured::None("no field") : Measured(fields.front().*which);
          }};
}

/// One figure of the comparison with chance.
MeasureColumn OfChance(const std::string& name, const char* meaning, ChanceLevel ChanceMeasures::*which,
                       Measured ChanceLevel::*part) {
  return {name, "", meaning, [which, part](const Cluster& c) {
            return c.Chance ? (*c.Chance).*which.*part : Measured::None("not compared with chance");
          }};
}

void AddChance(Columns& columns, const std::string& name, ChanceLevel ChanceMeasures::*which) {
  Add(columns,
      {OfChance(name + "_p", "Probability of so large a value if the train had nothing to do with the behaviour", which,
                &ChanceLevel::P),
       OfChance(name + "_chance_mean", "Mean of the shifted trains", which, &ChanceLevel::Mean),
       OfChance(name + "_z", "Standard deviations above the mean of the shifted trains", which, &ChanceLevel::Z),
       OfChance(name + "_chance_95", "95th percentile of the shifted trains", which, &ChanceLevel::High95),
       OfChance(name + "_chance_99", "99th percentile of the shifted trains", which, &ChanceLevel::High99)});
}

void AddTrain(Columns& columns) {
  Add(columns,
      {
          {"spikes", "", "Spikes within the loaded time", [](const Cluster& c) { return Count(c.Train.Spikes); }},
          {"rate", "Hz", "Spikes over the loaded time", [](const Cluster& c) { return c.Train.Rate; }},
          {"presence", "", "Share of 100 equal parts of the time in which the cell fired",
           [](const Cluster& c) { return c.Train.Presence; }},
          {"short_intervals", "", "Intervals below 2 ms",
           [](const Cluster& c) { return Count(c.Train.Refractory.Short); }},
      });
  AddEstimate(columns, "short_share", "Their share of all intervals", &RefractoryMeasures::Share);
  AddEstimate(columns, "contamination_one",
              "Share of foreign spikes if all come from one other cell (Hill et al. 2011)",
              &RefractoryMeasures::ContaminationByOne);
  AddEstimate(columns, "contamination_many",
              "Share of foreign spikes if they come from many cells (Llobet et al. 2022)",
              &RefractoryMeasures::ContaminationByMany);
  Add(columns,
      {
          {"burst_share", "", "Share of spikes with an interval below 6 ms before or after",
           [](const Cluster& c) { return c.Train.Bursts; }},
          {"cv", "", "Standard deviation of the intervals over their mean",
           [](const Cluster& c) { return c.Train.Variation; }},
          {"cv2", "", "The same for successive intervals, without slow changes of rate",
           [](const Cluster& c) { return c.Train.LocalVariation; }},
          {"theta_index", "", "Power around the theta peak over the mean power to 125 Hz",
           [](const Cluster& c) { return c.Train.ThetaIndex; }},
          {"theta_frequency", "Hz", "Frequency of that peak", [](const Cluster& c) { return c.Train.ThetaFrequency; }},
      });
}

void AddWaveform(Columns& columns) {
  AddWires(columns, "peak", "Highest point of the mean waveform", &WaveformMeasures::Wire::Peak);
  AddWires(columns, "trough", "Lowest point after the peak", &WaveformMeasures::Wire::Trough);
  Add(columns,
      {
          {"largest_wire", "", "Wire with the largest mean waveform, from 1; the figures up to drift are its",
           [](const Cluster& c) {
             return c.Waveform.Largest < 0 ? Measured::None("no wire was recorded") : Count(c.Waveform.Largest + 1);
           }},
          {"peak_to_trough", "us", "Time from peak to trough",
           [](const Cluster& c) { return c.Waveform.PeakToTrough; }},
          {"width", "us", "Width of the peak at half its height", [](const Cluster& c) { return c.Waveform.Width; }},
          {"snr", "", "Span of the mean waveform over twice the noise",
           [](const Cluster& c) { return c.Waveform.SignalToNoise; }},
          {"amplitude_cutoff", "", "Share of spikes too small to be detected",
           [](const Cluster& c) { return c.Waveform.Cutoff; }},
          {"drift", "uV/h", "Change of the spikes' height", [](const Cluster& c) { return c.Waveform.Drift; }},
          {"excursion", "uV", "Largest difference of the medians that drift is computed from",
           [](const Cluster& c) { return c.Waveform.Excursion; }},
      });
}

void AddIsolation(Columns& columns) {
  Add(columns, {
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
               });
}

void AddPlace(Columns& columns) {
  Add(columns,
      {
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
          OfField("field_area", "cm2", "Area of the field with the highest peak", &Field::Area),
          OfField("field_x", "cm", "Its centre, from the left of the map", &Field::X),
          OfField("field_y", "cm", "Its centre, from the top of the map", &Field::Y),
          OfField("field_rate", "Hz", "Rate in that field", &Field::Rate),
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
      });
}

void AddDirectionAndSpeed(Columns& columns) {
  Add(columns, {
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
               });
}

void AddAllChance(Columns& columns) {
  AddChance(columns, "information", &ChanceMeasures::Information);
  columns.push_back(
      {"information_above_chance", "bits/spike", "Information minus its mean under shifts", [](const Cluster& c) {
         return c.Chance ? c.Chance->InformationAboveChance : Measured::None("not compared with chance");
       }});
  AddChance(columns, "grid", &ChanceMeasures::Grid);
  AddChance(columns, "border", &ChanceMeasures::Border);
  AddChance(columns, "vector_length", &ChanceMeasures::VectorLength);
  AddChance(columns, "speed", &ChanceMeasures::Speed);
  columns.push_back(
      OfChance("speed_lower_p", "Probability of so small a value", &ChanceMeasures::Speed, &ChanceLevel::LowerP));
  AddChance(columns, "stability", &ChanceMeasures::Stability);
}

}  // namespace

const std::vector<MeasureColumn>& MeasureColumns() {
  static const Columns all = [] {
    Columns columns;
    const auto add = [&columns](MeasurePart part, std::initializer_list<void (*)(Columns&)> groups) {
      const size_t first = columns.size();
      for (const auto group : groups) group(columns);
      for (size_t i = first; i < columns.size(); ++i) columns[i].Part = part;
    };
    add(MeasurePart::Train, {AddTrain});
    add(MeasurePart::Waveform, {AddWaveform});
    add(MeasurePart::Isolation, {AddIsolation});
    add(MeasurePart::Place, {AddPlace, AddDirectionAndSpeed, AddAllChance});
    return columns;
  }();
  return all;
}

int TestsPerCluster() {
  const auto& columns = MeasureColumns();
  return static_cast<int>(std::count_if(columns.begin(), columns.end(),
                                        [](const MeasureColumn& column) { return column.Name.ends_with("_p"); }));
}

}  // namespace pallomir
