#include "gui/viewers/map_cells.h"

#include <algorithm>
#include <vector>

#include "gui/controls/toolkit_values.h"
#include "gui/viewers/figures.h"

namespace pallomir {

namespace {

constexpr double kPercentile = 0.99;

/// Ticks of a scale whose last colour includes higher values: the last label says so.
class OpenEnded : public QCPAxisTicker {
 public:
  OpenEnded(double end, QString text) : end_(end), text_(std::move(text)) {}

 protected:
  QVector<double> createTickVector(double step, const QCPRange& range) override {
    QVector<double> ticks = QCPAxisTicker::createTickVector(step, range);
    while (!ticks.isEmpty() && ticks.last() > end_ - step) ticks.removeLast();
    return ticks << end_;
  }
  QString getTickLabel(double tick, const QLocale& locale, QChar format, int precision) override {
    return tick == end_ ? text_ : QCPAxisTicker::getTickLabel(tick, locale, format, precision);
  }

 private:
  double end_;
  QString text_;
};

}  // namespace

void FillCells(QCPColorMap& colours, const MapResult& map, double scale) {
  const Map& grid = map.Grid;
  // A border without values, outside the visible range: the colour map needs at least two bins each way.
  QCPColorMapData* cells = colours.data();
  const auto centre = [&](double corner, int bin) { return (corner + (bin + 0.5) * grid.Bin) / scale; };
  cells->setSize(grid.Columns + 2, grid.Rows + 2);
  cells->setRange({centre(grid.Left, -1), centre(grid.Left, grid.Columns)},
                  {centre(grid.Top, -1), centre(grid.Top, grid.Rows)});
  cells->fill(kNotKnown);
  const bool times = map.Kind == MapKind::Occupancy;
  for (int row = 0; row < grid.Rows; ++row)
    for (int column = 0; column < grid.Columns; ++column) {
      const double value = grid.At(row, column);
      cells->setCell(column + 1, row + 1, times && value == 0 ? kNotKnown : value);
    }
}

double ColoursEnd(const MapResult& map) {
  if (map.Kind != MapKind::Occupancy) return PeakOf(map.Grid).Value;
  std::vector<double> visited;
  for (const double value : map.Grid.Values)
    if (value > 0) visited.push_back(value);
  if (visited.empty()) return PeakOf(map.Grid).Value;
  // The bin below the percentile, so that a single bin does not decide even in a small map.
  const auto end = visited.begin() + static_cast<std::ptrdiff_t>(kPercentile * static_cast<double>(visited.size() - 1));
  std::nth_element(visited.begin(), end, visited.end());
  return *end;
}

void SetScale(QCPColorScale& scale, const MapResult& map, int numbers) {
  const double end = ColoursEnd(map);
  if (map.Kind == MapKind::SpatialAutocorrelation)
    scale.setDataRange({-1, 1});
  else
    scale.setDataRange({0, end > 0 ? end : 1});
  const QString unit = FromText(UnitOf(map.Kind));
  const bool open = end < PeakOf(map.Grid).Value;
  if (open)
    scale.axis()->setTicker(
        QSharedPointer<QCPAxisTicker>(new OpenEnded(end, QString::fromUtf8("\u2265 ") + Figure(end) + " " + unit)));
  scale.axis()->ticker()->setTickCount(numbers);
  scale.setLabel(open ? QString() : unit);
}

}  // namespace pallomir
