#pragma once

#include <cstdint>

#include "gui/viewers/result_window.h"

namespace pallomir {

/// A window of histograms, one above the other.
class HistogramWindow : public ResultWindow {
  Q_OBJECT

 protected:
  using ResultWindow::ResultWindow;

  /// Bin k has the count `Counts[k]` and extends from `Edges[k]` to `Edges[k + 1]`, in milliseconds.
  struct Histogram {
    QVector<double> Edges;
    QVector<double> Counts;
    QString Counted;  ///< "pairs"
    QString AxisLabel;
    bool Logarithmic = false;
  };
  void AddHistogram(const Histogram& histogram);

  /// Draws a dashed vertical line in the histogram added last, labelled at its upper end.
  void Mark(double milliseconds, const QString& words);

  void Restyle(const PlotStyle& style) override;
  QString ReadOut(QPointF at) const override;

 private:
  struct Panel {
    QCPAxisRect* Rect;
    QCPGraph* Bars;
    Histogram Shown;
  };
  std::vector<Panel> panels_;
};

}  // namespace pallomir
