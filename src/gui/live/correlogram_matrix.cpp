#include "gui/live/correlogram_matrix.h"

#include <QtWidgets>
#include <algorithm>
#include <cmath>

#include "gui/controls/toolkit_values.h"
#include "gui/viewers/figures.h"

namespace pallomir {

namespace {

constexpr double kGap = 3;
constexpr double kPenWidth = 1;

QColor Faint(QColor colour, int alpha) {
  colour.setAlpha(alpha);
  return colour;
}

/// The bin with the most pairs among those shown as first..end-1, from the left.
size_t HighestOf(const Correlogram& lags, size_t first, size_t end, bool mirrored) {
  const size_t last = lags.Pairs.size() - 1;
  size_t best = mirrored ? last - first : first;
  for (size_t k = first; k < end; ++k) {
    const size_t bin = mirrored ? last - k : k;
    if (lags.Pairs[bin] > lags.Pairs[best]) best = bin;
  }
  return best;
}

}  // namespace

CorrelogramMatrix::CorrelogramMatrix() {
  setObjectName("correlograms");
  setMouseTracking(true);
  setMinimumSize(200, 160);
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName("Correlograms of all pairs of clusters");
  setToolTip("A click chooses the cluster of the row. The band holds 99 % of what slow changes of rate would give.");
}

void CorrelogramMatrix::ShowState(const LiveState& state, const std::vector<int>& clusters) {
  clusters_ = clusters;
  colours_.clear();
  for (const int c : clusters_) colours_.push_back(ScreenColour(state.Program.ReferenceColours[c]));
  pairs_ = state.Cut.Pairs;
  chosen_ = state.Program.CurrentCluster;
  Draw();
  update();
}

void CorrelogramMatrix::Draw() {
  const QSize pixels = (QSizeF(size()) * devicePixelRatioF()).toSize();
  const bool whole = picture_.size() != pixels || drawnClusters_ != clusters_ || drawnColours_ != colours_;
  if (whole) {
    picture_ = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
    picture_.setDevicePixelRatio(devicePixelRatioF());
    picture_.fill(Qt::transparent);
    drawn_.clear();
    drawnClusters_ = clusters_;
    drawnColours_ = colours_;
  }
  QPainter painter(&picture_);
  for (size_t row = 0; row < clusters_.size(); ++row)
    for (size_t column = 0; column < clusters_.size(); ++column) {
      LivePair now = PairAt(row, column).Pair;
      LivePair& before = drawn_[{clusters_[row], clusters_[column]}];
      if (!whole && now == before) continue;
      before = std::move(now);
      PaintCell(painter, row, column);
    }
}

void CorrelogramMatrix::resizeEvent(QResizeEvent*) {
  Draw();
}

void CorrelogramMatrix::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::PaletteChange) return;
  picture_ = {};
  Draw();
}

QRectF CorrelogramMatrix::PlaceOf(size_t row, size_t column) const {
  const double head = fontMetrics().height() + 2.0, count = static_cast<double>(clusters_.size());
  const double width = (this->width() - head) / count, height = (this->height() - head) / count;
  // On whole pixels, so that a cell can be drawn again without its neighbours.
  return {std::round(head + static_cast<double>(column) * width), std::round(head + static_cast<double>(row) * height),
          std::max(std::floor(width - kGap), 1.0), std::max(std::floor(height - kGap), 1.0)};
}

std::optional<std::pair<size_t, size_t>> CorrelogramMatrix::CellAt(QPointF at) const {
  for (size_t row = 0; row < clusters_.size(); ++row)
    for (size_t column = 0; column < clusters_.size(); ++column)
      if (PlaceOf(row, column).contains(at)) return std::pair(row, column);
  return {};
}

CorrelogramMatrix::Shown CorrelogramMatrix::PairAt(size_t row, size_t column) const {
  const int a = clusters_[row], b = clusters_[column];
  const auto found = pairs_.find(std::minmax(a, b));
  return {found == pairs_.end() ? LivePair() : found->second, a > b};
}

void CorrelogramMatrix::PaintCell(QPainter& painter, size_t row, size_t column) const {
  const QRectF place = PlaceOf(row, column);
  painter.setClipRect(place);
  painter.fillRect(place, palette().base());
  const Shown shown = PairAt(row, column);
  if (!shown.Pair.Lags || shown.Pair.Lags->Pairs.empty()) return;
  const Correlogram& lags = *shown.Pair.Lags;
  const auto highest =
      static_cast<double>(std::max<int64_t>({1, *std::max_element(lags.Pairs.begin(), lags.Pairs.end()),
                                             *std::max_element(lags.High.begin(), lags.High.end())}));
  // No more columns than pixels: of the bins in one the highest is drawn.
  const size_t bins = lags.Pairs.size(), columns = std::min(bins, static_cast<size_t>(place.width()) + 1);
  const double step = place.width() / static_cast<double>(columns);
  const auto x = [&](size_t k) { return place.left() + static_cast<double>(k) * step; };
  const auto y = [&](double count) { return place.bottom() - count / highest * place.height(); };
  const bool diagonal = row == column;
  const QColor ink = palette().color(QPalette::Text);
  const QColor bar =
      Faint(diagonal ? colours_[row] : palette().color(QPalette::Highlight), shown.Pair.Fresh ? 255 : 90);
  QPolygonF expected;
  for (size_t k = 0; k < columns; ++k) {
    const size_t bin =
        HighestOf(lags, k * bins / columns, std::max((k + 1) * bins / columns, k * bins / columns + 1), shown.Mirrored);
    painter.fillRect(QRectF(QPointF(x(k), y(static_cast<double>(lags.Pairs[bin]))), QPointF(x(k + 1), place.bottom())),
                     bar);
    if (diagonal) continue;
    painter.fillRect(QRectF(QPointF(x(k), y(static_cast<double>(lags.High[bin]))),
                            QPointF(x(k + 1), y(static_cast<double>(lags.Low[bin])))),
                     Faint(ink, 50));
    expected << QPointF(x(k) + step / 2, y(lags.Expected[bin]));
  }
  painter.setPen(QPen(Faint(ink, 160), kPenWidth));
  painter.drawPolyline(expected);
  painter.setPen(QPen(Faint(ink, 60), kPenWidth));
  painter.drawLine(QPointF(place.center().x(), place.top()), QPointF(place.center().x(), place.bottom()));
}

void CorrelogramMatrix::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (clusters_.empty()) {
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, "No cluster is shown.");
    return;
  }
  painter.drawImage(0, 0, picture_);
  for (size_t k = 0; k < clusters_.size(); ++k) {
    QFont font = this->font();
    font.setBold(clusters_[k] == chosen_);
    painter.setFont(font);
    painter.setPen(palette().color(clusters_[k] == chosen_ ? QPalette::Highlight : QPalette::WindowText));
    const QRectF place = PlaceOf(k, k);
    const double head = fontMetrics().height() + 2.0;
    const QString number = QString::number(clusters_[k]);
    painter.drawText(QRectF(place.left(), 0, place.width(), head), Qt::AlignCenter, number);
    painter.drawText(QRectF(0, place.top(), head, place.height()), Qt::AlignCenter, number);
  }
}

QString CorrelogramMatrix::Scale() const {
  const auto known = std::find_if(pairs_.begin(), pairs_.end(), [](const auto& pair) { return pair.second.Lags; });
  if (known == pairs_.end()) return {};
  const Correlogram& lags = *known->second.Lags;
  const double width = static_cast<double>(lags.Width) / 1000;
  return QString("Up to %1 ms either way in bins of %2 ms; line and band: expected, and 99 % of it by chance.")
      .arg(Figure(static_cast<double>(lags.Pairs.size()) / 2 * width), Figure(width));
}

QString CorrelogramMatrix::ReadOut(QPointF at) const {
  const auto cell = CellAt(at);
  if (!cell) return Scale();
  const auto [row, column] = *cell;
  const Shown shown = PairAt(row, column);
  QString pair = QString("%1 to %2").arg(clusters_[row]).arg(clusters_[column]);
  if (!shown.Pair.Lags || shown.Pair.Lags->Pairs.empty()) return pair;
  const Correlogram& lags = *shown.Pair.Lags;
  const QRectF place = PlaceOf(row, column);
  const size_t bins = lags.Pairs.size();
  const auto k =
      std::min(static_cast<size_t>((at.x() - place.left()) / place.width() * static_cast<double>(bins)), bins - 1);
  const size_t bin = shown.Mirrored ? bins - 1 - k : k;
  const double width = static_cast<double>(lags.Width) / 1000,
               from = (static_cast<double>(k) - static_cast<double>(bins) / 2) * width;
  return QString("%1, %2 to %3 ms: %4 pairs, expected %5 (%6 to %7)")
      .arg(pair, Figure(from), Figure(from + width), Whole(static_cast<double>(lags.Pairs[bin])),
           Figure(lags.Expected[bin]), Whole(static_cast<double>(lags.Low[bin])),
           Whole(static_cast<double>(lags.High[bin])));
}

void CorrelogramMatrix::mousePressEvent(QMouseEvent* event) {
  const auto cell = CellAt(event->position());
  if (event->button() == Qt::LeftButton && cell) emit ClusterChosen(clusters_[cell->first]);
}

void CorrelogramMatrix::mouseMoveEvent(QMouseEvent* event) {
  emit Hovered(event->position());
}

void CorrelogramMatrix::leaveEvent(QEvent*) {
  emit Hovered({-1, -1});
}

}  // namespace pallomir
