#include "gui/forms/key_cross.h"

#include <QCursor>
#include <algorithm>

namespace pallomir {

KeyCross::KeyCross(PlotSurface& surface, QObject* parent) : QObject(parent), surface_(surface) {
  connect(&surface, &PlotSurface::Resized, this, [this] {
    if (at_) Place(*at_);
  });
}

void KeyCross::Show() {
  const QPoint middle(surface_.width() / 2, surface_.height() / 2);
  Place(surface_.underMouse() ? surface_.mapFromGlobal(QCursor::pos()) : middle);
}

void KeyCross::Hide() {
  at_.reset();
  surface_.SetCross({});
}

bool KeyCross::Step(int key, Qt::KeyboardModifiers modifiers) {
  if (!at_) return false;
  const int by = modifiers.testFlag(Qt::ControlModifier) ? 40 : modifiers.testFlag(Qt::ShiftModifier) ? 1 : 8;
  switch (key) {
    case Qt::Key_Left:
      Place(*at_ - QPointF(by, 0));
      return true;
    case Qt::Key_Right:
      Place(*at_ + QPointF(by, 0));
      return true;
    case Qt::Key_Up:
      Place(*at_ - QPointF(0, by));
      return true;
    case Qt::Key_Down:
      Place(*at_ + QPointF(0, by));
      return true;
    default:
      return false;
  }
}

void KeyCross::Place(QPointF at) {
  at_ = QPointF(std::clamp<double>(at.x(), 0, surface_.width() - 1),
                std::clamp<double>(at.y(), 0, surface_.height() - 1));
  surface_.SetCross(at_);
}

}  // namespace pallomir
