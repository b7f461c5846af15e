#pragma once

#include <qcustomplot.h>

#include <QtGui>

namespace pallomir {

/// What a plot is drawn with.
struct PlotStyle {
  QColor Ground;
  QColor Ink;    ///< axes, numbers and words
  QColor Quiet;  ///< what only guides the eye, and second words
  QColor Line;   ///< grids
  QColor Data;   ///< bars and curves
  QColor Mark;   ///< what stands out from the data
  QFont Text;
  QFont Small;
  QFont Title;
};

/// As the rest of the desktop, light or dark, with the widget's font.
PlotStyle ScreenStyle(const QWidget& widget);

/// Dark on white, as pictures are kept and printed; sizes as on the screen.
PlotStyle PrintStyle(const QWidget& widget);

/// Thin lines, ticks outwards, no grid.
void StyleAxis(QCPAxis* axis, const PlotStyle& style);

/// Words of a plot, which leave their place to the rest when the window is small.
QCPTextElement* MakeWords(QCustomPlot* plot, const QString& text, int flags);
void StyleWords(QCPTextElement* words, const QFont& font, QColor colour);

}  // namespace pallomir
