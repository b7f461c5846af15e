#include "pallomir/results/map_file.h"

#include <cmath>
#include <utility>

#include "pallomir/files/file_fault.h"
#include "pallomir/files/number_text.h"
#include "pallomir/files/save_file.h"
#include "pallomir/results/result_text.h"

namespace pallomir {

namespace {

constexpr double kMostFileBins = 4 * kMostBins;  // an autocorrelation is twice as wide and high as its map

struct KindName {
  MapKind Kind;
  const char* Name;
  const char* Unit;
};
constexpr KindName kKinds[] = {
    {MapKind::Rate, "RateMap", "spikes/s"},
    {MapKind::Occupancy, "OccupancyMap", "s"},
    {MapKind::SpatialAutocorrelation, "SpatialAutoCorr", "r"},
};

const KindName& NameOf(MapKind kind) {
  return kKinds[static_cast<size_t>(kind)];
}

const KindName& KindOf(const std::filesystem::path& path) {
  const std::string name = ResultKind(path);
  for (const KindName& kind : kKinds)
    if (kind.Name == name) return kind;
  throw FaultOf(ErrorKind::Foreign, path, "is not a map file");
}

std::string HeaderFor(const MapResult& result) {
  std::vector<HeaderEntry> lines = HeaderEntries(result.Used);
  if (result.PixelsPerCm > 0) AddNumber(lines, "PixelsPerCm", result.PixelsPerCm);
  AddNumber(lines, "Peak", PeakOf(result.Grid).Value);
  AddNumber(lines, "MeanRate", result.MeanRate);
  AddNumber(lines, "SpatialInformation", result.Information);
  if (!result.Explanation.empty()) lines.push_back({"Explanation", result.Explanation});
  return TextHeader(NameOf(result.Kind).Name, {}, lines);
}

/// The line "columns,rows,left,top,bin,unit".
Map ReadFrame(ResultText& text) {
  TextFields fields(text.Line());
  double values[5];
  for (double& value : values) {
    const auto number = NumberFromText(fields.Take());
    if (!number || !fields.More()) text.Fault("this should be columns,rows,left,top,bin,unit");
    value = *number;
  }
  const auto [columns, rows, left, top, bin] = values;
  const auto isCount = [](double value) { return value >= 0 && value <= kMostFileBins && value == std::floor(value); };
  if (!isCount(columns) || !isCount(rows) || columns * rows > kMostFileBins || (columns == 0) != (rows == 0))
    text.Fault(DoubleText(columns) + " columns and " + DoubleText(rows) + " rows do not make a map");
  if (!(bin > 0)) text.Fault("the bin size must be above 0");
  return {static_cast<int>(columns), static_cast<int>(rows), left, top, bin, {}};
}

}  // namespace

std::string_view UnitOf(MapKind kind) {
  return NameOf(kind).Unit;
}

void WriteMapFile(const MapResult& result, const std::filesystem::path& path) {
  const Map& map = result.Grid;
  std::string text = HeaderFor(result);
  text += std::to_string(map.Columns) + "," + std::to_string(map.Rows);
  for (const double value : {map.Left, map.Top, map.Bin}) text.append(",").append(ResultNumber(value));
  text.append(",").append(UnitOf(result.Kind)).append("\r\n");
  for (int row = 0; row < map.Rows; ++row)
    for (int column = 0; column < map.Columns; ++column)
      text.append(ResultNumber(map.At(row, column))).append(column + 1 < map.Columns ? "," : "\r\n");
  SaveFile file(path);
  file.Write(text);
  file.Commit();
}

MapResult ReadMapFile(const std::filesystem::path& path) {
  const KindName& kind = KindOf(path);
  ResultText text(path, kind.Name);
  const std::string_view header = text.Header();
  MapResult result;
  result.Kind = kind.Kind;
  result.Used = UsageFrom(header, text.File());
  result.PixelsPerCm = std::fmax(HeaderNumber(header, "PixelsPerCm", text.File()), 0);
  result.MeanRate = HeaderNumber(header, "MeanRate", text.File());
  result.Information = HeaderNumber(header, "SpatialInformation", text.File());
  result.Explanation = HeaderValue(header, "Explanation").value_or("");
  result.Grid = ReadFrame(text);
  for (int row = 0; row < result.Grid.Rows; ++row)
    text.Numbers(static_cast<size_t>(result.Grid.Columns), result.Grid.Values);
  if (!text.AtEnd()) text.Fault("the map should end here");
  return result;
}

}  // namespace pallomir
