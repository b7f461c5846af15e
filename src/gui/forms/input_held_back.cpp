#include "gui/forms/input_held_back.h"

#include <QtWidgets>

namespace pallomir {

bool InputHeldBack::eventFilter(QObject* watched, QEvent* event) {
  if (!watched->isWidgetType() || QApplication::activeModalWidget()) return false;
  const bool isEscape = [&] {
    const auto* key = dynamic_cast<QKeyEvent*>(event);
    return key && key->key() == Qt::Key_Escape;
  }();
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      // The first event of a key: accepting it prevents shortcuts.
      event->accept();
      if (isEscape) stop_();
      return true;
    case QEvent::KeyPress:
      if (!isEscape) refuse_();
      return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      refuse_();
      return true;
    case QEvent::KeyRelease:
    case QEvent::MouseButtonRelease:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
      return true;
    default:
      return false;
  }
}

}  // namespace pallomir
