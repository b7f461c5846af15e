#pragma once

#include <QWidget>
#include <vector>

#include "pallomir/projection/view.h"

namespace pallomir {

/// The tick labels and the name of an axis, in a strip beside the plot, where they hide no points.
class AxisRuler : public QWidget {
 public:
  /// Below the plot, or to its left with the name rotated.
  AxisRuler(Qt::Orientation orientation, QWidget* parent);

  /// A tick label and its position along the strip, from the plot's left or upper edge.
  struct Mark {
    double Position;
    QString Text;
  };
  /// The marks of a view's axis, for a surface of `ratio` device pixels per pixel.
  static std::vector<Mark> MarksOf(Qt::Orientation orientation, const View& view, double ratio);
  void Show(std::vector<Mark> marks, const QString& name);
  void Clear() { Show({}, {}); }

  /// The width of the strip.
  static constexpr int kThickness = 18;
  /// Paints a strip of this length with its upper left corner at the origin.
  static void Paint(QPainter& painter, Qt::Orientation orientation, double length, const std::vector<Mark>& marks,
                    const QString& name);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Qt::Orientation orientation_;
  std::vector<Mark> marks_;
  QString name_;
};

}  // namespace pallomir
