#include "gui/forms/cluster_label.h"

#include <QtWidgets>

namespace pallomir {

ClusterLabel::ClusterLabel(int cluster, bool quiet, QWidget* parent) : QAbstractButton(parent), quiet_(quiet) {
  setText(QString("CL %1").arg(cluster));
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
}

void ClusterLabel::SetColours(const QColor& back, const QColor& text) {
  if (back == back_ && text == text_) return;
  back_ = back;
  text_ = text;
  update();
}

QSize ClusterLabel::sizeHint() const {
  return {fontMetrics().horizontalAdvance("CL 30") + 18, fontMetrics().height() + 4};
}

void ClusterLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF frame = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  const bool raised = hasFocus() || underMouse();
  QPen outline(raised ? QColor("#f0f3f8") : quiet_ ? QColor("#4a505c") : back_);
  if (quiet_ && !raised) outline.setStyle(Qt::DotLine);
  painter.setPen(outline);
  painter.setBrush(back_);
  painter.drawRoundedRect(frame, 3, 3);
  painter.setPen(text_);
  QFont bold = font();
  bold.setBold(!quiet_);
  painter.setFont(bold);
  painter.drawText(rect(), Qt::AlignCenter, text());
}

}  // namespace pallomir
