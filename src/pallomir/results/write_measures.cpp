#include "pallomir/results/write_measures.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "pallomir/files/number_text.h"
#include "pallomir/files/save_file.h"
#include "pallomir/results/measure_columns.h"
#include "pallomir/results/measure_settings_file.h"

namespace pallomir {

namespace {

using Json = nlohmann::ordered_json;

/// Units of voltages are those of the file.
std::string UnitOf(const MeasureColumn& column, const MeasuredCut& cut) {
  std::string unit = column.Unit;
  if (!cut.InMicrovolts && unit.starts_with("uV")) unit.replace(0, 2, "counts");
  return unit;
}

std::string TestsNote(const MeasuredCut& cut) {
  const auto tests = static_cast<int64_t>(cut.Clusters.size()) * TestsPerCluster();
  return std::to_string(tests) + " tests: with so many, one in twenty is below 0.05 by chance alone";
}

std::vector<std::string> Remarks(const MeasuredCut& cut) {
  std::vector<std::string> remarks;
  for (const std::string& why : {cut.WhyNoSpikeFile, cut.WhyNoPositions})
    if (!why.empty()) remarks.push_back(why);
  return remarks;
}

Json Number(double value) {
  return std::isfinite(value) ? Json(value) : Json();
}

template <class Values>
Json Numbers(const Values& values) {
  Json list = Json::array();
  for (const double value : values) list.push_back(Number(value));
  return list;
}

Json FieldsJson(const std::vector<Field>& fields) {
  Json list = Json::array();
  for (const Field& field : fields)
    list.push_back({{"area_cm2", field.Area},
                    {"x_cm", field.X},
                    {"y_cm", field.Y},
                    {"peak_hz", field.Peak},
                    {"rate_hz", field.Rate}});
  return list;
}

Json ClusterJson(const MeasuredCluster& cluster) {
  Json json;
  json["cluster"] = cluster.Number;
  Json unknown = Json::object();
  for (const MeasureColumn& column : MeasureColumns()) {
    const Measured measured = column.Of(cluster);
    json[column.Name] = Number(measured.Value);
    if (*measured.Why != '\0') unknown[column.Name] = measured.Why;
  }
  json["remarks"] = unknown;
  json["fields_list"] = FieldsJson(cluster.Behaviour.Place.Fields);
  for (int wire = 0; wire < kWires; ++wire) {
    json["mean_waveform"].push_back(Numbers(cluster.Average.Mean[wire]));
    json["sd_waveform"].push_back(Numbers(cluster.Average.Deviation[wire]));
  }
  return json;
}

Json PairJson(const MeasuredPair& pair) {
  Json json;
  json["a"] = pair.A;
  json["b"] = pair.B;
  json["shared_points"] = pair.Shared;
  json["distance"] = Number(pair.Distance.Value);
  json["map_correlation"] = Number(pair.MapCorrelation.Value);
  json["correlogram"] = {{"bin_us", pair.Lags.Width}, {"pairs", pair.Lags.Pairs}, {"expected", pair.Lags.Expected},
                         {"low", pair.Lags.Low},      {"high", pair.Lags.High},   {"excess_p", pair.Lags.ExcessP}};
  return json;
}

void AddComment(std::string& text, std::string_view comment) {
  text.append("# ").append(comment).append("\r\n");
}

}  // namespace

std::string MeasuresCsv(const MeasuredCut& cut) {
  std::string text = "# Pallomir " PALLOMIR_VERSION ", measures of clusters\r\n";
  for (const HeaderEntry& entry : SettingEntries(cut.Settings)) AddComment(text, entry.Key + ": " + entry.Value);
  AddComment(text, "LoadedSeconds: " + DoubleText(cut.LoadedSeconds));
  for (const std::string& remark : Remarks(cut)) AddComment(text, remark);
  AddComment(text, TestsNote(cut));
  text += "# Units:";
  for (const MeasureColumn& column : MeasureColumns())
    if (!column.Unit.empty()) text.append(" ").append(column.Name).append(" ").append(UnitOf(column, cut)).append(";");
  text += "\r\ncluster";
  for (const MeasureColumn& column : MeasureColumns()) text.append(",").append(column.Name);
  text += "\r\n";
  for (const MeasuredCluster& cluster : cut.Clusters) {
    text += std::to_string(cluster.Number);
    for (const MeasureColumn& column : MeasureColumns()) {
      const double value = column.Of(cluster).Value;
      text.append(",").append(std::isnan(value) ? std::string() : DoubleText(value));
    }
    text += "\r\n";
  }
  return text;
}

std::string MeasuresJson(const MeasuredCut& cut) {
  Json json;
  json["pallomir"] = PALLOMIR_VERSION;
  for (const HeaderEntry& entry : SettingEntries(cut.Settings)) json["settings"][entry.Key] = entry.Value;
  json["loaded_seconds"] = cut.LoadedSeconds;
  json["remarks"] = Remarks(cut);
  json["tests"] = TestsNote(cut);
  for (const MeasureColumn& column : MeasureColumns())
    json["columns"][column.Name] = {{"unit", UnitOf(column, cut)}, {"meaning", column.Meaning}};
  json["clusters"] = Json::array();
  for (const MeasuredCluster& cluster : cut.Clusters) json["clusters"].push_back(ClusterJson(cluster));
  json["pairs"] = Json::array();
  for (const MeasuredPair& pair : cut.Pairs) json["pairs"].push_back(PairJson(pair));
  return json.dump(1) + "\n";
}

void WriteMeasures(const MeasuredCut& cut, const std::filesystem::path& base) {
  const auto with = [&](const char* extension) {
    std::filesystem::path path = base;
    return path += extension;
  };
  SaveFile csv(with(".csv")), json(with(".json"));
  csv.Write(MeasuresCsv(cut));
  json.Write(MeasuresJson(cut));
  csv.Finish();
  json.Finish();
  csv.Commit();
  json.Commit();
}

}  // namespace pallomir
