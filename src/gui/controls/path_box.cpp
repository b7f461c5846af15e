#include "gui/controls/path_box.h"

#include <QtWidgets>

namespace pallomir {

void PathBox::paintEvent(QPaintEvent* event) {
  constexpr int kMargin = 2;  // of the text within a line edit
  QStyleOptionFrame option;
  initStyleOption(&option);
  const QRect room =
      style()->subElementRect(QStyle::SE_LineEditContents, &option, this).adjusted(kMargin, 0, -kMargin, 0);
  // With the focus it can be scrolled and copied like any line edit.
  if (hasFocus() || fontMetrics().horizontalAdvance(text()) <= room.width()) return QLineEdit::paintEvent(event);
  QPainter painter(this);
  style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
  painter.setPen(palette().color(QPalette::Text));
  painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter,
                   fontMetrics().elidedText(text(), Qt::ElideLeft, room.width()));
}

}  // namespace pallomir
