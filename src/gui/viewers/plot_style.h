#pragma once

#include <qcustomplot.h>

#include <QtGui>

namespace pallomir {

/// The colours and fonts of a plot.
struct PlotStyle {
  QColor Ground;
  QColor Ink;    ///< axes, numbers and text
  QColor Quiet;  ///< guide lines and secondary text
  QColor Line;   ///< grids
  QColor Data;   ///< bars and curves
  QColor Mark;   ///< highlights
  QFont Text;
  QFont Small;
  QFont Title;
};

/// The desktop's style, light or dark, with the widget's font.
PlotStyle ScreenStyle(const QWidget& widget);

/// Dark on white, for saved and printed plots; sizes as on the screen.
PlotStyle PrintStyle(const QWidget& widget);

/// Thin lines, outward ticks, no grid.
void StyleAxis(QCPAxis* axis, const PlotStyle& style);

/// Text in a plot that gives way to the rest if the window is small.
QCPTextElement* MakeWords(QCustomPlot* plot, const QString& text, int flags);
void StyleWords(QCPTextElement* words, const QFont& font, QColor colour);

}  // namespace pallomir
