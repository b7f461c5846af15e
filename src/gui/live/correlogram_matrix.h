#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "gui/live/live_window.h"

namespace pallomir {

/// The correlograms of all pairs of some clusters as a matrix, with their expectation and its band; autocorrelograms on
/// the diagonal. Row a, column b has the lags from the spikes of a to those of b.
class CorrelogramMatrix : public QWidget {
  Q_OBJECT

 public:
  CorrelogramMatrix();

  void ShowState(const LiveState& state, const std::vector<int>& clusters);

  /// What is at a position, in words; the lags that are shown if nothing is.
  QString ReadOut(QPointF at) const;

 signals:
  void ClusterChosen(int c);
  void Hovered(QPointF at);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  struct Shown {
    LivePair Pair;
    /// Row and column are in the other order: lags have the other sign.
    bool Mirrored = false;
  };
  QString Scale() const;
  std::optional<std::pair<size_t, size_t>> CellAt(QPointF at) const;
  QRectF PlaceOf(size_t row, size_t column) const;
  Shown PairAt(size_t row, size_t column) const;
  /// Draws the cells that have changed.
  void Draw();
  void PaintCell(QPainter& painter, size_t row, size_t column) const;

  std::vector<int> clusters_;
  std::vector<QColor> colours_;
  std::map<std::pair<int, int>, LivePair> pairs_;
  int chosen_ = 0;
  QImage picture_;
  // What the picture shows:
  std::vector<int> drawnClusters_;
  std::vector<QColor> drawnColours_;
  std::map<std::pair<int, int>, LivePair> drawn_;
};

}  // namespace pallomir
