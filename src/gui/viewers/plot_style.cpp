#include "gui/viewers/plot_style.h"

namespace pallomir {

namespace {

constexpr double kHairLine = 1;
constexpr int kTick = 5;
constexpr int kSubTick = 2;

/// Sizes in pixels, so that a saved image has the window's proportions at any resolution.
QFont SizedFont(const QWidget& widget, double times, QFont::Weight weight) {
  QFont font = widget.font();
  font.setPixelSize(qRound(QFontInfo(widget.font()).pixelSize() * times));
  font.setWeight(weight);
  return font;
}

PlotStyle WithFonts(PlotStyle style, const QWidget& widget) {
  style.Text = SizedFont(widget, 1, QFont::Normal);
  style.Small = SizedFont(widget, 0.9, QFont::Normal);
  style.Title = SizedFont(widget, 1.1, QFont::DemiBold);
  return style;
}

}  // namespace

PlotStyle PrintStyle(const QWidget& widget) {
  PlotStyle style;
  style.Ground = Qt::white;
  style.Ink = QColor("#1b2230");
  style.Quiet = QColor("#6b7585");
  style.Line = QColor("#d5dae3");
  style.Data = QColor("#2f4b7c");
  style.Mark = QColor("#c8402f");
  return WithFonts(style, widget);
}

PlotStyle ScreenStyle(const QWidget& widget) {
  const QPalette& palette = widget.palette();
  if (palette.color(QPalette::Base).lightness() >= 128) return PrintStyle(widget);
  PlotStyle style;
  style.Ground = palette.color(QPalette::Base);
  style.Ink = palette.color(QPalette::Text);
  style.Quiet = QColor("#97a1b1");
  style.Line = QColor("#343b48");
  style.Data = QColor("#82aaff");
  style.Mark = QColor("#ff8a70");
  return WithFonts(style, widget);
}

void StyleAxis(QCPAxis* axis, const PlotStyle& style) {
  const QPen pen(style.Ink, kHairLine);
  axis->setBasePen(pen);
  axis->setTickPen(pen);
  axis->setSubTickPen(pen);
  axis->setTickLength(0, kTick);
  axis->setSubTickLength(0, kSubTick);
  axis->setTickLabelFont(style.Text);
  axis->setTickLabelColor(style.Ink);
  axis->setLabelFont(style.Text);
  axis->setLabelColor(style.Ink);
  axis->setLabelPadding(6);
  axis->grid()->setVisible(false);
}

QCPTextElement* MakeWords(QCustomPlot* plot, const QString& text, int flags) {
  auto* words = new QCPTextElement(plot, text);
  words->setTextFlags(flags);
  words->setMinimumSize(20, 10);
  return words;
}

void StyleWords(QCPTextElement* words, const QFont& font, QColor colour) {
  words->setFont(font);
  words->setSelectedFont(font);
  words->setTextColor(colour);
  words->setSelectedTextColor(colour);
}

}  // namespace pallomir
