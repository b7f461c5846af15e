#include "gui/forms/axis_ruler.h"

#include <QPainter>

namespace pallomir {

namespace {

constexpr int kThickness = 18;

QFont NumberFont(QFont font) {
  font.setPixelSize(11);
  return font;
}

QFont NameFont(QFont font) {
  font.setPixelSize(12);
  font.setBold(true);
  return font;
}

}  // namespace

AxisRuler::AxisRuler(Qt::Orientation orientation, QWidget* parent) : QWidget(parent), orientation_(orientation) {
  if (orientation == Qt::Horizontal)
    setFixedHeight(kThickness);
  else
    setFixedWidth(kThickness);
}

void AxisRuler::Show(std::vector<Mark> marks, const QString& name) {
  marks_ = std::move(marks);
  name_ = name;
  setAccessibleName(name);
  update();
}

void AxisRuler::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const bool upright = orientation_ == Qt::Vertical;
  const double length = upright ? height() : width();
  if (upright) {
    painter.translate(0, height());
    painter.rotate(-90);
  }
  painter.setPen(palette().color(QPalette::WindowText));
  painter.setFont(NameFont(font()));
  const double nameLeft = length - painter.fontMetrics().horizontalAdvance(name_) - 6;
  painter.drawText(QRectF(nameLeft, 0, length - nameLeft, kThickness), Qt::AlignVCenter, name_);
  painter.setFont(NumberFont(font()));
  for (const Mark& mark : marks_) {
    const double wide = painter.fontMetrics().horizontalAdvance(mark.Text);
    const double left = (upright ? length - mark.Position : mark.Position) - wide / 2;
    if (left < 2 || left + wide > nameLeft - 6) continue;
    painter.drawText(QRectF(left, 0, wide + 1, kThickness), Qt::AlignVCenter, mark.Text);
  }
}

}  // namespace pallomir
