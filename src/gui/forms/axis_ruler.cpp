#include "gui/forms/axis_ruler.h"

#include <QPainter>

#include "gui/controls/toolkit_values.h"
#include "gui/viewers/picture.h"

namespace pallomir {

namespace {

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

std::vector<AxisRuler::Mark> AxisRuler::MarksOf(Qt::Orientation orientation, const View& view, double ratio) {
  const bool upright = orientation == Qt::Vertical;
  const double from = upright ? view.Bottom : view.Left, to = upright ? view.Top : view.Right;
  std::vector<Mark> marks;
  for (const Tick& tick : AxisTicks(from, to, AxisTickCount((upright ? view.Height : view.Width) / ratio))) {
    const double pixel = upright ? view.PixelY(tick.Value) : view.PixelX(tick.Value);
    marks.push_back({(pixel + 0.5) / ratio, FromText(tick.Text)});
  }
  return marks;
}

void AxisRuler::Paint(QPainter& painter, Qt::Orientation orientation, double length, const std::vector<Mark>& marks,
                      const QString& name) {
  const QFont font = painter.font();
  const bool upright = orientation == Qt::Vertical;
  painter.save();
  if (upright) {
    painter.translate(0, length);
    painter.rotate(-90);
  }
  painter.setFont(NameFont(font));
  const double nameLeft = length - painter.fontMetrics().horizontalAdvance(name) - 6;
  painter.drawText(QRectF(nameLeft, 0, length - nameLeft, kThickness), Qt::AlignVCenter, name);
  painter.setFont(NumberFont(font));
  for (const Mark& mark : marks) {
    const double wide = painter.fontMetrics().horizontalAdvance(mark.Text);
    const double left = (upright ? length - mark.Position : mark.Position) - wide / 2;
    if (left < 2 || left + wide > nameLeft - 6) continue;
    painter.drawText(QRectF(left, 0, wide + 1, kThickness), Qt::AlignVCenter, mark.Text);
  }
  painter.restore();
}

void AxisRuler::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::WindowText));
  Paint(painter, orientation_, orientation_ == Qt::Vertical ? height() : width(), marks_, name_);
}

}  // namespace pallomir
