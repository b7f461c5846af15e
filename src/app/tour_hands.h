#pragma once

#include <QtWidgets>

// Acts as a user: finds controls by name and operates them with the mouse.

namespace pallomir {

/// Finds a control of a form; aborts the tour if it does not exist.
template <class Control = QWidget>
Control* Find(const QWidget* form, const QString& name) {
  auto* control = form ? form->findChild<Control*>(name) : nullptr;
  if (!control) qFatal("no control %s", qPrintable(name));
  return control;
}

/// "chkCluster(3)".
inline QString Numbered(const char* name, int number) {
  return QString("%1(%2)").arg(name).arg(number);
}

inline void Press(const QWidget* form, const QString& button) {
  Find<QAbstractButton>(form, button)->click();
  QApplication::processEvents();
}

/// Triggers a menu entry.
inline void ChooseEntry(const QWidget* form, const QString& entry) {
  form->findChild<QAction*>(entry)->trigger();
  QApplication::processEvents();
}

inline void Type(const QWidget* form, const QString& box, const QString& text) {
  auto* line = Find<QLineEdit>(form, box);
  line->selectAll();
  line->insert(text);
}

inline void Mouse(QWidget* widget, QEvent::Type type, Qt::MouseButton button, QPointF at) {
  QMouseEvent event(type, at, widget->mapToGlobal(at), button, button, Qt::NoModifier);
  QApplication::sendEvent(widget, &event);
}

inline void Click(QWidget* widget, QPointF at, Qt::MouseButton button = Qt::LeftButton) {
  Mouse(widget, QEvent::MouseMove, Qt::NoButton, at);
  Mouse(widget, QEvent::MouseButtonPress, button, at);
  Mouse(widget, QEvent::MouseButtonRelease, button, at);
  QApplication::processEvents();
}

inline void DoubleClick(QWidget* widget, QPointF at) {
  Click(widget, at);
  Mouse(widget, QEvent::MouseButtonDblClick, Qt::LeftButton, at);
  Mouse(widget, QEvent::MouseButtonRelease, Qt::LeftButton, at);
  QApplication::processEvents();
}

/// Presses at one position and moves to the other; the button stays down.
inline void BeginDrag(QWidget* widget, QPointF from, QPointF to) {
  Mouse(widget, QEvent::MouseButtonPress, Qt::LeftButton, from);
  Mouse(widget, QEvent::MouseMove, Qt::NoButton, to);
  QApplication::processEvents();
}

inline void EndDrag(QWidget* widget, QPointF at) {
  Mouse(widget, QEvent::MouseButtonRelease, Qt::LeftButton, at);
  QApplication::processEvents();
}

inline void ClickItem(QListWidget* list, int row) {
  list->scrollToTop();
  list->scrollToItem(list->item(row));
  Click(list->viewport(), list->visualItemRect(list->item(row)).center());
}

/// A top-level window by name; the last one if there are several.
inline QWidget* Window(const QString& name) {
  QWidget* found = nullptr;
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->objectName() == name) found = window;
  return found;
}

}  // namespace pallomir
