#pragma once

#include <QEvent>
#include <functional>

class QLineEdit;
class QMenu;
class QObject;
class QWidget;

namespace pallomir {

/// Passes the events of `watched` to `hook` before they are handled; an event for which it returns true goes no
/// further.
void HookEvents(QObject* watched, std::function<bool(QEvent*)> hook);

/// Calls `handler` for a double click in a text box, and for Enter.
void OnDoubleClick(QLineEdit* box, std::function<void()> handler);

/// Calls `handler` when the right button is pressed on a widget.
void OnRightPress(QWidget* widget, std::function<void()> handler);

/// Opens `menu` by a right click on a widget, or by the menu key.
void OpenByRightClick(QWidget* widget, QMenu* menu);

}  // namespace pallomir
