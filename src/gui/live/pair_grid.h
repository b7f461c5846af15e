#pragma once

#include <QImage>
#include <QTimer>
#include <QWidget>
#include <optional>
#include <vector>

#include "gui/live/live_window.h"
#include "pallomir/projection/view.h"

namespace pallomir {

/// Projections of several pairs of parameters beside each other, with clusters and boundaries as in the large one. A
/// spike under the pointer is marked in all of them.
class PairGrid : public QWidget {
  Q_OBJECT

 public:
  PairGrid();

  void SetPairs(std::vector<ParameterPair> pairs);
  const std::vector<ParameterPair>& Pairs() const { return pairs_; }
  /// Draws what has changed since the last time, one picture after another, so that events are processed in between.
  void ShowState(const LiveState& state);
  /// Draws at once what is left.
  void DrawRest();
  bool Drawing() const { return turn_.isActive(); }

  /// The index of the pair at a position; empty between them.
  std::optional<size_t> PairAt(QPoint position) const;

 signals:
  void PairChosen(pallomir::ParameterPair pair);
  /// The pointer moved over a pair, in device pixels of its view, or left all.
  void Hovered(std::optional<size_t> pair, QPointF pixel);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 public:
  /// Marks a spike in all pairs, or none.
  void Mark(const Session& session, std::optional<size_t> row);
  /// The mapping of a pair's picture.
  const View& ViewOfPair(size_t index) const { return cells_[index].Scale; }

 private:
  struct Cell {
    QRect Place;  ///< of the picture, in logical pixels
    QString Title;
    View Scale;
    QImage Picture;
    std::optional<QPointF> Marked;  ///< in device pixels of the picture
  };
  /// What the pictures were drawn from.
  struct Drawn {
    PointTable::Version Points;
    BoundaryTable Clusters;
    ByParameter<float> AxisMinimum, AxisMaximum;
    ByCluster<Colour> Colours;
    ByCluster<bool> Display;
    bool WhiteBackground = false, RandomX = false, RandomY = false;
    std::optional<RecordRanges> Displayed;
    bool Density = false;
    std::vector<ParameterPair> Pairs;
    QSize Size;
    double Ratio = 1;
    bool operator==(const Drawn&) const = default;
  };

  void LayOut();
  void DrawNext();
  static QImage DrawPair(const LiveState& state, ParameterPair pair, const View& scale, double ratio);

  std::vector<ParameterPair> pairs_;
  std::vector<Cell> cells_;
  std::optional<Drawn> drawn_;
  std::optional<LiveState> state_;
  /// The first picture that is out of date.
  size_t next_ = 0;
  QTimer turn_;
  std::optional<ParameterPair> onView_;
  std::optional<size_t> marked_;
};

}  // namespace pallomir
