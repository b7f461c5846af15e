#include "gui/viewers/map_window.h"

#include <algorithm>
#include <cmath>

#include "gui/controls/controls.h"
#include "gui/controls/toolkit_values.h"
#include "gui/viewers/figures.h"
#include "gui/viewers/map_cells.h"

namespace pallomir {

namespace {

QString KindText(MapKind kind) {
  switch (kind) {
    case MapKind::Rate:
      return "Rate map";
    case MapKind::Occupancy:
      return "Map";
    case MapKind::SpatialAutocorrelation:
      break;
  }
  return "Spatial autocorrelation";
}

/// Shows unvisited bins as missing values, not as a time of 0.
MapResult Shown(MapResult result) {
  if (result.Kind == MapKind::Occupancy)
    for (double& value : result.Grid.Values)
      if (value == 0) value = kNotKnown;
  return result;
}

QString FiguresOf(const MapResult& result) {
  const std::vector<double>& values = result.Grid.Values;
  const double peak = PeakOf(result.Grid).Value;
  if (result.Kind == MapKind::Rate)
    return InLine({NamedFigure("Peak", peak, "spikes/s"), NamedFigure("Mean", result.MeanRate, "spikes/s"),
                   NamedFigure("Spatial information", result.Information, "bits/spike")});
  double sum = 0, least = 1;
  int64_t count = 0;
  for (const double value : values) {
    if (std::isnan(value)) continue;
    sum += value;
    least = std::min(least, value);
    ++count;
  }
  if (result.Kind == MapKind::SpatialAutocorrelation)
    return InLine({"Pearson's r", NamedFigure("lowest", least, {}), "lag 0 at the cross"});
  return InLine({NamedFigure("Total", sum, "s"), NamedFigure("Longest", peak, "s in a bin"),
                 Whole(static_cast<double>(count)) + " bins visited"});
}

QString ExplanationOf(const MapResult& result) {
  if (!result.Explanation.empty()) return QString::fromStdString(result.Explanation);
  const Map& map = result.Grid;
  if (std::isnan(PeakOf(map).Value)) return "The map has no bin with a value.";
  const double scale = result.PixelsPerCm > 0 ? result.PixelsPerCm : 1;
  const QCPRange x(map.Left / scale, (map.Left + map.Columns * map.Bin) / scale);
  const QCPRange y(map.Top / scale, (map.Top + map.Rows * map.Bin) / scale);
  return QCPRange::validRange(x) && QCPRange::validRange(y) ? QString()
                                                            : "The map is too far from the origin to be drawn.";
}

}  // namespace

MapWindow::MapWindow(QWidget* parent, Dialogs& dialogs, const ResultTitle& title, const std::filesystem::path& mapFile,
                     ColourScale colours)
    : MapWindow(parent, dialogs, title, mapFile, colours, Shown(ReadMapFile(mapFile))) {}

MapWindow::MapWindow(QWidget* parent, Dialogs& dialogs, const ResultTitle& title, const std::filesystem::path& mapFile,
                     ColourScale colours, MapResult result)
    : ResultWindow(parent, dialogs, title, KindText(result.Kind), mapFile), result_(std::move(result)) {
  SetWords({FiguresOf(result_)}, QString::fromStdString(UsageText(result_.Used)), ExplanationOf(result_));
  if (IsEmpty()) return;
  MakePlot();
  MakeChoice(colours);
}

void MapWindow::MakePlot() {
  const Map& map = result_.Grid;
  rect_ = new FittedRect(Plot(), static_cast<double>(map.Columns) / map.Rows);
  rect_->setMinimumMargins({16, 10, 0, 12});
  rect_->setupFullAxesBox();
  rect_->setBackground(QBrush(Qt::white));
  rect_->setRangeZoomFactor(0.85);
  scale_ = new ScaleBeside(Plot(), rect_);
  scale_->setMinimumMargins({0, 0, 12, 0});
  scale_->setBarWidth(14);
  scale_->setRangeDrag(false);
  scale_->setRangeZoom(false);
  Body()->addElement(0, 0, rect_);
  Body()->addElement(0, 1, scale_);

  const bool isLag = result_.Kind == MapKind::SpatialAutocorrelation;
  QCPAxis* x = rect_->axis(QCPAxis::atBottom);
  QCPAxis* y = rect_->axis(QCPAxis::atLeft);
  x->setLabel((isLag ? "x lag (" : "x (") + LengthUnit() + ")");
  y->setLabel((isLag ? "y lag (" : "y (") + LengthUnit() + ")");
  y->setRangeReversed(true);
  Bound(x, {InUnits(map.Left), InUnits(map.Left + map.Columns * map.Bin)});
  Bound(y, {InUnits(map.Top), InUnits(map.Top + map.Rows * map.Bin)});

  FillColours();
  if (isLag) MarkLagZero();
}

void MapWindow::FillColours() {
  colours_ = new QCPColorMap(rect_->axis(QCPAxis::atBottom), rect_->axis(QCPAxis::atLeft));
  colours_->setInterpolate(false);
  colours_->setColorScale(scale_);
  FillCells(*colours_, result_, 1 / InUnits(1));
  SetScale(*scale_, result_, 5);
}

/// A dark cross with a light rim, visible on any colour.
void MapWindow::MarkLagZero() {
  for (const auto& [colour, width, size] : {std::tuple(Qt::white, 3.2, 13.0), std::tuple(Qt::black, 1.4, 11.0)}) {
    auto* cross = new QCPGraph(rect_->axis(QCPAxis::atBottom), rect_->axis(QCPAxis::atLeft));
    cross->setLineStyle(QCPGraph::lsNone);
    cross->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssPlus, QPen(colour, width), Qt::NoBrush, size));
    cross->setData({0}, {0});
  }
}

void MapWindow::MakeChoice(ColourScale colours) {
  auto* choice = Named(new QComboBox, "cboColours", "Colours",
                       "How values become colours. Even: equal differences look equal; Gray: darkest is highest");
  for (const ColourScale scale : kColourScales) choice->addItem(NameOf(scale));
  choice->setCurrentIndex(static_cast<int>(colours));
  connect(choice, &QComboBox::currentIndexChanged, this, [this](int index) {
    Choose(kColourScales[index]);
    Plot()->replot();
  });
  AddControl(MakeLabel("C&olours", choice));
  AddControl(choice);
  Choose(colours);
}

void MapWindow::Choose(ColourScale colours) {
  scale_->setGradient(GradientOf(colours));
}

void MapWindow::Restyle(const PlotStyle& style) {
  for (QCPAxis* axis : rect_->axes()) StyleAxis(axis, style);
  for (const auto side : {QCPAxis::atTop, QCPAxis::atRight}) rect_->axis(side)->setTicks(false);
  StyleAxis(scale_->axis(), style);
  scale_->axis()->setSubTicks(false);
  for (QCPAxisRect* bar : Plot()->axisRects())
    for (QCPAxis* axis : bar->axes()) axis->setBasePen(QPen(style.Ink, 1));
}

QString MapWindow::ReadOut(QPointF at) const {
  const Map& map = result_.Grid;
  const double x = rect_->axis(QCPAxis::atBottom)->pixelToCoord(at.x());
  const double y = rect_->axis(QCPAxis::atLeft)->pixelToCoord(at.y());
  const double column = std::floor((x - InUnits(map.Left)) / InUnits(map.Bin));
  const double row = std::floor((y - InUnits(map.Top)) / InUnits(map.Bin));
  if (!rect_->rect().contains(at.toPoint()) || !(column >= 0 && column < map.Columns && row >= 0 && row < map.Rows))
    return {};
  const double value = map.At(static_cast<int>(row), static_cast<int>(column));
  const bool isLag = result_.Kind == MapKind::SpatialAutocorrelation;
  const QString where = QString("x %1, y %2 %3: ").arg(x, 0, 'f', 1).arg(y, 0, 'f', 1).arg(LengthUnit());
  if (std::isnan(value)) return where + (isLag ? "too little overlap" : "not visited");
  const std::string_view unit = UnitOf(result_.Kind);
  return isLag ? where + NamedFigure("r", value, {}) : where + NamedFigure({}, value, unit).trimmed();
}

}  // namespace pallomir
