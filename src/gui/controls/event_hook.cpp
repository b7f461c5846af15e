#include "gui/controls/event_hook.h"

#include <QtWidgets>

namespace pallomir {

namespace {

class EventHook : public QObject {
 public:
  EventHook(QObject* watched, std::function<bool(QEvent*)> hook) : QObject(watched), hook_(std::move(hook)) {}
  bool eventFilter(QObject*, QEvent* event) override { return hook_(event); }

 private:
  std::function<bool(QEvent*)> hook_;
};

bool IsEnter(const QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const int key = static_cast<const QKeyEvent*>(event)->key();
  return key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool IsRight(const QEvent* event, QEvent::Type type) {
  return event->type() == type && static_cast<const QMouseEvent*>(event)->button() == Qt::RightButton;
}

}  // namespace

void HookEvents(QObject* watched, std::function<bool(QEvent*)> hook) {
  watched->installEventFilter(new EventHook(watched, std::move(hook)));
}

void OnDoubleClick(QLineEdit* box, std::function<void()> handler) {
  HookEvents(box, [handler = std::move(handler)](QEvent* event) {
    if (event->type() != QEvent::MouseButtonDblClick && !IsEnter(event)) return false;
    handler();
    return true;
  });
}

void OnRightPress(QWidget* widget, std::function<void()> handler) {
  HookEvents(widget, [handler = std::move(handler)](QEvent* event) {
    if (IsRight(event, QEvent::MouseButtonPress)) handler();
    return false;
  });
}

void OpenByRightClick(QWidget* widget, QMenu* menu) {
  HookEvents(widget, [menu](QEvent* event) {
    if (IsRight(event, QEvent::MouseButtonRelease))
      menu->popup(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
    if (event->type() == QEvent::ContextMenu) {
      const auto* asked = static_cast<QContextMenuEvent*>(event);
      if (asked->reason() == QContextMenuEvent::Keyboard) menu->popup(asked->globalPos());
    }
    return false;
  });
}

}  // namespace pallomir
