#include "gui/viewers/histogram_window.h"

#include <algorithm>

#include "gui/viewers/figures.h"

namespace pallomir {

namespace {

constexpr double kRoomAbove = 1.1;  // for the label of a mark

}  // namespace

void HistogramWindow::AddHistogram(const Histogram& histogram) {
  auto* rect = new QCPAxisRect(Plot());
  rect->setMinimumMargins({16, 12, 28, 10});
  rect->setRangeDrag(Qt::Horizontal);
  Body()->addElement(Body()->rowCount(), 0, rect);
  for (const auto side : {QCPAxis::atTop, QCPAxis::atRight}) rect->axis(side)->setVisible(false);
  // One left margin for all, so that their axes are aligned.
  if (panels_.empty())
    rect->setMarginGroup(QCP::msLeft, new QCPMarginGroup(Plot()));
  else
    rect->setMarginGroup(QCP::msLeft, panels_.front().Rect->marginGroup(QCP::msLeft));

  QCPAxis* x = rect->axis(QCPAxis::atBottom);
  QCPAxis* y = rect->axis(QCPAxis::atLeft);
  x->setLabel(histogram.AxisLabel);
  y->setLabel(histogram.Counted);
  y->ticker()->setTickCount(4);
  y->setNumberFormat("f");
  y->setNumberPrecision(0);
  if (histogram.Logarithmic) {
    x->setScaleType(QCPAxis::stLogarithmic);
    x->setTicker(QSharedPointer<QCPAxisTickerLog>(new QCPAxisTickerLog));
    x->setNumberFormat("g");
  }
  const double highest = *std::max_element(histogram.Counts.begin(), histogram.Counts.end());
  constexpr double hair = 1e-9;  // so that rounding does not hide the tick labels at the ends
  Bound(x,
        {histogram.Edges.first() * (1 + (histogram.Logarithmic ? -hair : hair)), histogram.Edges.last() * (1 + hair)});
  Bound(y, {0, std::max(highest, 1.0) * kRoomAbove}, true);

  // A filled step line: bars without seams, correct on a logarithmic axis too.
  QVector<double> heights = histogram.Counts;
  heights << 0;
  auto* bars = new QCPGraph(x, y);
  bars->setData(histogram.Edges, heights, true);
  bars->setLineStyle(QCPGraph::lsStepLeft);
  bars->setAntialiased(false);
  bars->setAntialiasedFill(false);
  panels_.push_back({rect, bars, histogram});
}

void HistogramWindow::Mark(double milliseconds, const QString& words) {
  QCPAxisRect* rect = panels_.back().Rect;
  auto* line = new QCPItemStraightLine(Plot());
  auto* text = new QCPItemText(Plot());
  for (QCPAbstractItem* item : std::initializer_list<QCPAbstractItem*>{line, text}) {
    item->setClipAxisRect(rect);
    for (QCPItemPosition* position : item->positions()) {
      position->setAxisRect(rect);
      position->setAxes(rect->axis(QCPAxis::atBottom), rect->axis(QCPAxis::atLeft));
    }
  }
  line->point1->setCoords(milliseconds, 0);
  line->point2->setCoords(milliseconds, 1);
  text->position->setTypeY(QCPItemPosition::ptAxisRectRatio);
  text->position->setCoords(milliseconds, 0);
  text->setPositionAlignment((milliseconds < 0 ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignTop);
  text->setPadding({4, 0, 4, 0});
  text->setText(words);
}

void HistogramWindow::Restyle(const PlotStyle& style) {
  for (const Panel& panel : panels_) {
    for (const auto side : {QCPAxis::atBottom, QCPAxis::atLeft}) StyleAxis(panel.Rect->axis(side), style);
    panel.Bars->setPen(Qt::NoPen);
    panel.Bars->setBrush(style.Data);
  }
  for (int i = 0; i < Plot()->itemCount(); ++i) {
    if (auto* line = qobject_cast<QCPItemStraightLine*>(Plot()->item(i)))
      line->setPen(QPen(style.Mark, 1, Qt::DashLine));
    if (auto* text = qobject_cast<QCPItemText*>(Plot()->item(i))) {
      text->setFont(style.Small);
      text->setColor(style.Mark);
    }
  }
}

QString HistogramWindow::ReadOut(QPointF at) const {
  for (const Panel& panel : panels_) {
    if (!panel.Rect->rect().contains(at.toPoint())) continue;
    const Histogram& shown = panel.Shown;
    const double x = panel.Rect->axis(QCPAxis::atBottom)->pixelToCoord(at.x());
    const auto above = std::upper_bound(shown.Edges.begin(), shown.Edges.end(), x);
    if (above == shown.Edges.begin() || above == shown.Edges.end()) return {};
    const qsizetype bin = above - shown.Edges.begin() - 1;
    return QString("%1 to %2 ms: %3 %4")
        .arg(Figure(shown.Edges[bin]), Figure(shown.Edges[bin + 1]), Whole(shown.Counts[bin]),
             shown.Counts[bin] == 1 ? shown.Counted.chopped(1) : shown.Counted);
  }
  return {};
}

}  // namespace pallomir
