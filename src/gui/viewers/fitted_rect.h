#pragma once

#include <qcustomplot.h>

namespace pallomir {

/// An axis rectangle with a fixed aspect ratio, so that units are equally long on both axes.
class FittedRect : public QCPAxisRect {
 public:
  /// `proportion` is width over height.
  FittedRect(QCustomPlot* plot, double proportion) : QCPAxisRect(plot), proportion_(proportion) {}

  void update(UpdatePhase phase) override {
    if (phase == upLayout) {
      const QSizeF room = mRect.size();
      const QSizeF fitted = room.width() > room.height() * proportion_
                                ? QSizeF(room.height() * proportion_, room.height())
                                : QSizeF(room.width(), room.width() / proportion_);
      const QPoint centre = mRect.center();
      mRect.setSize(fitted.toSize().expandedTo(QSize(1, 1)));
      mRect.moveCenter(centre);
    }
    QCPAxisRect::update(phase);
  }

 private:
  double proportion_;
};

/// A colour scale to the right of an axis rectangle, with the same height.
class ScaleBeside : public QCPColorScale {
 public:
  ScaleBeside(QCustomPlot* plot, const FittedRect* rect) : QCPColorScale(plot), rect_(rect) {}

  void update(UpdatePhase phase) override {
    if (phase == upLayout) {
      constexpr int gap = 14;
      mRect = QRect(rect_->right() + gap, rect_->top(), mRect.width(), rect_->height());
    }
    QCPColorScale::update(phase);
  }

 private:
  const FittedRect* rect_;
};

/// A colour scale below an axis rectangle with its tick labels and axis label, with the same width.
class ScaleBelow : public QCPColorScale {
 public:
  ScaleBelow(QCustomPlot* plot, const FittedRect* rect) : QCPColorScale(plot), rect_(rect) {
    setType(QCPAxis::atBottom);
  }

  void update(UpdatePhase phase) override {
    if (phase == upLayout) {
      constexpr int gap = 6;
      mRect = QRect(rect_->left(), rect_->bottom() + rect_->margins().bottom() + gap, rect_->width(), mRect.height());
    }
    QCPColorScale::update(phase);
  }

 private:
  const FittedRect* rect_;
};

}  // namespace pallomir
