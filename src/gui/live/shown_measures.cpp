#include "gui/live/shown_measures.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "gui/viewers/figures.h"

namespace pallomir {

namespace {

bool IsOfOneWire(const std::string& name) {
  return name.size() > 2 && name[name.size() - 2] == '_' && name.back() >= '1' && name.back() <= '4';
}

const MeasureColumn* ColumnNamed(const std::string& name) {
  const auto& all = MeasureColumns();
  const auto found = std::find_if(all.begin(), all.end(), [&](const auto& column) { return column.Name == name; });
  return found == all.end() ? nullptr : &*found;
}

std::vector<ShownMeasure> MakeShown() {
  std::vector<ShownMeasure> shown;
  const MeasuredCluster none;
  for (const MeasureColumn& column : MeasureColumns()) {
    const std::string& name = column.Name;
    if (std::string_view(column.Of(none).Why) == "not compared with chance" || IsOfOneWire(name)) continue;
    if (name.ends_with("_low") || name.ends_with("_high")) continue;
    shown.push_back({&column, ColumnNamed(name + "_low"), ColumnNamed(name + "_high")});
  }
  return shown;
}

/// Counts with all their digits.
QString FigureOf(const MeasureColumn& column, const MeasuredCluster& cluster) {
  const double value = column.Of(cluster).Value;
  return column.Unit.empty() && value == std::floor(value) ? Whole(value) : Figure(value);
}

/// Where the column's name would not do.
constexpr std::pair<const char*, const char*> kCaptions[] = {{"short_share", "Share of short intervals"},
                                                             {"contamination_one", "Contamination, one cell"},
                                                             {"contamination_many", "Contamination, many"},
                                                             {"cv", "CV"},
                                                             {"cv2", "CV2"},
                                                             {"snr", "Signal to noise"},
                                                             {"l_ratio", "L-ratio"},
                                                             {"d_prime", "d'"},
                                                             {"vector_length", "R"},
                                                             {"rayleigh_p", "Rayleigh p"}};

}  // namespace

QString ShownMeasure::Caption() const {
  for (const auto& [name, caption] : kCaptions)
    if (Value->Name == name) return caption;
  QString caption = QString::fromStdString(Value->Name).replace('_', ' ');
  caption[0] = caption[0].toUpper();
  return caption;
}

QString ShownMeasure::Meaning(bool inMicrovolts) const {
  QString unit = QString::fromStdString(Value->Unit);
  unit.replace("uV", inMicrovolts ? "µV" : "counts").replace("us", "µs");
  return QString::fromStdString(Value->Meaning) + (unit.isEmpty() ? QString() : " (" + unit + ")") +
         (Low ? ", with its 95 % interval" : "");
}

QString ShownMeasure::Text(const LiveCluster& cluster) const {
  if (!cluster.Measured[IndexOf(Value->Part)]) return "…";
  QString value = FigureOf(*Value, cluster.Measures);
  if (!Low || !Value->Of(cluster.Measures).Known()) return value;
  const auto end = [&](const MeasureColumn& column) {
    return QString::number(column.Of(cluster.Measures).Value, 'g', 2);
  };
  return QString("%1 (%2–%3)").arg(value, end(*Low), end(*High));
}

QString ShownMeasure::Remark(const LiveCluster& cluster, const LiveCut& cut) const {
  const std::string& missing = Value->Part == MeasurePart::Place ? cut.WhyNoPositions : cut.WhyNoSpikeFile;
  if (!IsFresh(cluster) && Value->Part != MeasurePart::Train && !missing.empty())
    return QString::fromStdString(missing);
  if (!cluster.Measured[IndexOf(Value->Part)]) return "Being measured";
  if (!IsFresh(cluster)) return "Of an earlier cut; being measured";
  return QString::fromUtf8(Value->Of(cluster.Measures).Why);
}

const std::vector<ShownMeasure>& ShownMeasures() {
  static const std::vector<ShownMeasure> shown = MakeShown();
  return shown;
}

}  // namespace pallomir
