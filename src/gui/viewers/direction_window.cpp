#include "gui/viewers/direction_window.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "gui/viewers/figures.h"

namespace pallomir {

namespace {

constexpr double kMargin = 1.2;       // times the outermost ring, for the labels around it
constexpr double kRingLabel = 67.5;   // degrees: between two spokes
constexpr char kGridPart[] = "grid";  // object name of guide lines

QPointF OnCircle(double degrees, double radius) {
  const double angle = degrees * std::numbers::pi / 180;
  return {radius * std::cos(angle), radius * std::sin(angle)};
}

/// The next number among 1, 1.2, 1.6, 2, 2.4, 3, 4, 5, 6, 8 times a power of ten, whose halves are round too.
double RoundAbove(double value) {
  if (!(value > 1e-300)) return 1;
  const double decade = std::pow(10, std::floor(std::log10(value)));
  for (const double step : {1.0, 1.2, 1.6, 2.0, 2.4, 3.0, 4.0, 5.0, 6.0, 8.0})
    if (step * decade >= value) return step * decade;
  return 10 * decade;
}

QStringList FiguresOf(const DirectionResult& result) {
  const DirectionTuning& tuning = result.Tuning;
  const QString vector =
      std::isnan(tuning.VectorLength)
          ? QString()
          : QString("R %1 towards %2\u00b0").arg(tuning.VectorLength, 0, 'f', 2).arg(tuning.VectorDirection, 0, 'f', 0);
  const double longest = *std::max_element(tuning.Dwell.begin(), tuning.Dwell.end());
  return {InLine({vector, NamedFigure("Peak", tuning.PeakRate, "spikes/s"),
                  QString("Coverage %1 %").arg(tuning.Coverage * 100, 0, 'f', 0)}),
          InLine({result.OfTravel ? "Direction of travel (the file has no head directions)" : "Head direction",
                  NamedFigure("Thin line: dwell time, outer ring", longest, "s")})};
}

}  // namespace

DirectionWindow::DirectionWindow(QWidget* parent, Dialogs& dialogs, const ResultTitle& title,
                                 const std::filesystem::path& directionFile)
    : ResultWindow(parent, dialogs, title, "Direction", directionFile), result_(ReadDirectionFile(directionFile)) {
  SetWords(FiguresOf(result_), QString::fromStdString(UsageText(result_.Used)),
           QString::fromStdString(result_.Explanation));
  if (!IsEmpty()) MakePlot();
}

void DirectionWindow::MakePlot() {
  const DirectionTuning& tuning = result_.Tuning;
  rect_ = new FittedRect(Plot(), 1);
  rect_->setMinimumMargins({8, 8, 8, 8});
  Body()->addElement(0, 0, rect_);
  for (QCPAxis* axis : rect_->axes()) {
    axis->setVisible(false);
    axis->grid()->setVisible(false);
  }
  Bound(rect_->axis(QCPAxis::atBottom), {-kMargin, kMargin});
  Bound(rect_->axis(QCPAxis::atLeft), {-kMargin, kMargin});
  outerRate_ = RoundAbove(tuning.PeakRate);
  dwell_ = DrawCurve(tuning.Dwell, *std::max_element(tuning.Dwell.begin(), tuning.Dwell.end()));
  tuning_ = DrawCurve(tuning.Rate, outerRate_);
  DrawGrid();
  if (std::isnan(tuning.VectorLength)) return;
  vector_ = new QCPItemLine(Plot());
  vector_->setHead(QCPLineEnding(QCPLineEnding::esSpikeArrow, 9, 12));
  vector_->start->setCoords(0, 0);
  vector_->end->setCoords(OnCircle(tuning.VectorDirection, tuning.VectorLength));
}

void DirectionWindow::DrawGrid() {
  for (const double radius : {0.5, 1.0}) {
    auto* ring = new QCPItemEllipse(Plot());
    ring->setObjectName(kGridPart);
    ring->topLeft->setCoords(-radius, radius);
    ring->bottomRight->setCoords(radius, -radius);
    Write(Figure(radius * outerRate_) + (radius == 1 ? " spikes/s" : ""), kRingLabel, radius)
        ->setPositionAlignment(Qt::AlignLeft | Qt::AlignBottom);
  }
  for (int degrees = 0; degrees < 180; degrees += 45) {
    auto* spoke = new QCPItemLine(Plot());
    spoke->setObjectName(kGridPart);
    spoke->start->setCoords(OnCircle(degrees, 1));
    spoke->end->setCoords(OnCircle(degrees + 180, 1));
  }
  for (int degrees = 0; degrees < 360; degrees += 45) Write(QString("%1\u00b0").arg(degrees), degrees, 1.1);
  for (int i = 0; i < Plot()->itemCount(); ++i)
    if (Plot()->item(i)->objectName() == kGridPart) Plot()->item(i)->setLayer("grid");
}

/// A closed line through the bin centres, with gaps at bins without a value.
QCPCurve* DirectionWindow::DrawCurve(const DirectionTuning::Bins& values, double outermost) {
  auto* curve = new QCPCurve(rect_->axis(QCPAxis::atBottom), rect_->axis(QCPAxis::atLeft));
  QVector<double> x, y;
  const int bins = result_.Tuning.Count();
  for (int k = 0; k <= bins; ++k) {
    const int bin = k % bins;
    const QPointF at = OnCircle((bin + 0.5) * result_.Tuning.Width(), outermost > 0 ? values[bin] / outermost : 0);
    x << at.x();
    y << at.y();
  }
  curve->setData(x, y);
  return curve;
}

QCPItemText* DirectionWindow::Write(const QString& text, double degrees, double radius) {
  auto* words = new QCPItemText(Plot());
  words->setText(text);
  words->position->setCoords(OnCircle(degrees, radius));
  return words;
}

void DirectionWindow::Restyle(const PlotStyle& style) {
  for (int i = 0; i < Plot()->itemCount(); ++i) {
    QCPAbstractItem* item = Plot()->item(i);
    if (auto* ring = qobject_cast<QCPItemEllipse*>(item)) ring->setPen(QPen(style.Line, 1));
    if (auto* spoke = qobject_cast<QCPItemLine*>(item)) spoke->setPen(QPen(style.Line, 1));
    if (auto* words = qobject_cast<QCPItemText*>(item)) {
      words->setFont(style.Text);
      words->setColor(style.Quiet);
    }
  }
  dwell_->setPen(QPen(style.Quiet, 1.2));
  tuning_->setPen(QPen(style.Data, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  QColor fill = style.Data;
  fill.setAlphaF(0.14F);
  // A fill would bridge the gaps at empty bins.
  tuning_->setBrush(result_.Tuning.Coverage == 1 ? QBrush(fill) : QBrush(Qt::NoBrush));
  if (vector_) vector_->setPen(QPen(style.Mark, 2));
}

QString DirectionWindow::ReadOut(QPointF at) const {
  const double x = rect_->axis(QCPAxis::atBottom)->pixelToCoord(at.x());
  const double y = rect_->axis(QCPAxis::atLeft)->pixelToCoord(at.y());
  if (!rect_->rect().contains(at.toPoint()) || std::hypot(x, y) > 1) return {};
  const double degrees = std::fmod(std::atan2(y, x) * 180 / std::numbers::pi + 360, 360);
  const DirectionTuning& tuning = result_.Tuning;
  const int bin = std::min(static_cast<int>(degrees / tuning.Width()), tuning.Count() - 1);
  const QString where = QString("%1\u00b0 to %2\u00b0: ").arg(bin * tuning.Width()).arg((bin + 1) * tuning.Width());
  if (std::isnan(tuning.Rate[bin])) return where + "no dwell time";
  return where + QString("%1 spikes/s, %2 spikes in %3 s")
                     .arg(Figure(tuning.Rate[bin]), Whole(tuning.Spikes[bin]), Figure(tuning.Dwell[bin]));
}

}  // namespace pallomir
