#include "gui/live/pair_grid.h"

#include <QtWidgets>
#include <algorithm>
#include <cmath>

#include "gui/controls/toolkit_values.h"
#include "gui/viewers/picture.h"
#include "gui/viewers/point_layer.h"

namespace pallomir {

namespace {

constexpr int kGap = 4, kMargin = 1;

/// The number of columns that leaves the pictures closest to squares.
int ColumnsFor(size_t count, QSize room, int titleHeight) {
  int best = 1;
  double bestSide = 0;
  for (int columns = 1; columns <= static_cast<int>(count); ++columns) {
    const int rows = (static_cast<int>(count) + columns - 1) / columns;
    const double side =
        std::min(static_cast<double>(room.width()) / columns, static_cast<double>(room.height()) / rows - titleHeight);
    if (side > bestSide) {
      bestSide = side;
      best = columns;
    }
  }
  return best;
}

/// "MPeak-1 × 2" within a family, otherwise both names.
QString TitleOf(const QString& x, const QString& y) {
  const bool family = x.contains('-') && x.section('-', 0, 0) == y.section('-', 0, 0);
  return x + " × " + (family ? y.section('-', 1) : y);
}

}  // namespace

PairGrid::PairGrid() {
  setObjectName("pairs");
  setMouseTracking(true);
  setMinimumSize(180, 140);
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName("Pairs of parameters");
  turn_.setInterval(0);
  connect(&turn_, &QTimer::timeout, this, &PairGrid::DrawNext);
  // No tooltip, which would cover what one points at.
}

void PairGrid::SetPairs(std::vector<ParameterPair> pairs) {
  if (pairs == pairs_) return;
  pairs_ = std::move(pairs);
  marked_.reset();
  LayOut();
}

void PairGrid::LayOut() {
  cells_.assign(pairs_.size(), {});
  if (pairs_.empty()) return;
  const int title = fontMetrics().height();
  const int columns = ColumnsFor(pairs_.size(), size(), title);
  const int rows = (static_cast<int>(pairs_.size()) + columns - 1) / columns;
  const int width = (this->width() - 2 * kMargin + kGap) / columns, height = (this->height() + kGap) / rows;
  for (size_t i = 0; i < cells_.size(); ++i) {
    const int column = static_cast<int>(i) % columns, row = static_cast<int>(i) / columns;
    cells_[i].Place = QRect(kMargin + column * width, row * height + title, std::max(width - kGap, 2),
                            std::max(height - kGap - title, 2));
  }
  drawn_.reset();
  turn_.stop();
  update();
}

void PairGrid::ShowState(const LiveState& state) {
  const Session& session = state.Program;
  if (onView_ != PairOnView(session)) {
    onView_ = PairOnView(session);
    update();
  }
  const Drawn now{session.Points.CurrentVersion(),
                  session.Clusters,
                  session.AxisMinimum,
                  session.AxisMaximum,
                  session.Colours,
                  session.Display,
                  session.WhiteBackground,
                  session.RandomX,
                  session.RandomY,
                  state.Displayed,
                  state.Density,
                  pairs_,
                  size(),
                  devicePixelRatioF()};
  if (drawn_ == now) return;
  drawn_ = now;
  state_.emplace(state);
  next_ = 0;
  turn_.start();
}

void PairGrid::DrawNext() {
  if (next_ >= cells_.size() || !state_) return turn_.stop();
  const Session& session = state_->Program;
  const ParameterPair pair = pairs_[next_];
  Cell& cell = cells_[next_];
  const QSize pixels = (QSizeF(cell.Place.size()) * drawn_->Ratio).toSize();
  cell.Title = TitleOf(FromText(session.ParameterNames[pair.X]), FromText(session.ParameterNames[pair.Y]));
  cell.Scale = ViewOf(session, pair, pixels.width(), pixels.height());
  cell.Picture = DrawPair(*state_, pair, cell.Scale, drawn_->Ratio);
  if (++next_ == cells_.size()) {
    turn_.stop();
    Mark(session, marked_);
  }
  update();
}

void PairGrid::DrawRest() {
  while (turn_.isActive()) DrawNext();
}

QImage PairGrid::DrawPair(const LiveState& state, ParameterPair pair, const View& scale, double ratio) {
  const Session& session = state.Program;
  QImage ground = MakeGround(session, scale, ratio, {.Axes = false, .Boundaries = true, .Pair = pair});
  if (!PointsLoaded(session) || !scale.Drawable()) return ground;
  PointLayer points({scale.Width, scale.Height}, 0, std::max(1, static_cast<int>(std::lround(ratio))),
                    state.Density ? PointLayer::Looks::Density : PointLayer::Looks::Points);
  // The same numbers each time, so that spikes in several clusters do not flicker.
  UniformNumbers random(1);
  points.Draw(session, pair, scale, {{}, state.Displayed}, 0, session.Points.Rows(), random);
  return points.Over(ground, session);
}

void PairGrid::Mark(const Session& session, std::optional<size_t> row) {
  marked_ = row && *row < session.Points.Rows() ? row : std::nullopt;
  for (size_t i = 0; i < cells_.size(); ++i) {
    Cell& cell = cells_[i];
    cell.Marked.reset();
    if (!marked_) continue;
    const QPointF at(cell.Scale.PixelX(session.Points.Column(pairs_[i].X)[*marked_]),
                     cell.Scale.PixelY(session.Points.Column(pairs_[i].Y)[*marked_]));
    if (QRectF(0, 0, cell.Scale.Width, cell.Scale.Height).contains(at)) cell.Marked = at;
  }
  update();
}

std::optional<size_t> PairGrid::PairAt(QPoint position) const {
  for (size_t i = 0; i < cells_.size(); ++i)
    if (cells_[i].Place.contains(position)) return i;
  return {};
}

void PairGrid::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const double ratio = devicePixelRatioF();
  for (size_t i = 0; i < cells_.size(); ++i) {
    const Cell& cell = cells_[i];
    const bool onView = onView_ == pairs_[i];
    QFont font = this->font();
    font.setBold(onView);
    painter.setFont(font);
    painter.setPen(palette().color(onView ? QPalette::Highlight : QPalette::WindowText));
    const QRect title(cell.Place.left(), cell.Place.top() - fontMetrics().height(), cell.Place.width(),
                      fontMetrics().height());
    painter.drawText(title, Qt::AlignLeft | Qt::AlignVCenter,
                     QFontMetrics(font).elidedText(cell.Title, Qt::ElideRight, title.width()));
    painter.drawImage(cell.Place.topLeft(), cell.Picture);
    if (onView) painter.drawRect(QRectF(cell.Place).adjusted(-0.5, -0.5, 0.5, 0.5));
    if (!cell.Marked) continue;
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF at = QPointF(cell.Place.topLeft()) + (*cell.Marked + QPointF(0.5, 0.5)) / ratio;
    for (const QPen& pen : {QPen(Qt::black, 4), QPen(QColor(255, 176, 32), 2)}) {
      painter.setPen(pen);
      painter.drawEllipse(at, 6, 6);
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
  }
}

void PairGrid::mousePressEvent(QMouseEvent* event) {
  const auto pair = PairAt(event->position().toPoint());
  if (event->button() == Qt::LeftButton && pair) emit PairChosen(pairs_[*pair]);
}

void PairGrid::mouseMoveEvent(QMouseEvent* event) {
  const auto pair = PairAt(event->position().toPoint());
  const QPointF inside = pair ? event->position() - QPointF(cells_[*pair].Place.topLeft()) : QPointF();
  emit Hovered(pair, inside * devicePixelRatioF());
}

void PairGrid::leaveEvent(QEvent*) {
  emit Hovered({}, {});
}

void PairGrid::resizeEvent(QResizeEvent*) {
  LayOut();
}

}  // namespace pallomir
