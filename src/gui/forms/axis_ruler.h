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
  void Show(std::vector<Mark> marks, const QString& name);
  void Clear() { Show({}, {}); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Qt::Orientation orientation_;
  std::vector<Mark> marks_;
  QString name_;
};

}  // namespace pallomir
