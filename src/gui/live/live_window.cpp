#include "gui/live/live_window.h"

namespace pallomir {

LiveWindow::LiveWindow(const QString& name, const QString& title, const QString& what) {
  setObjectName(name);
  setWindowTitle(title);
  setAccessibleName(title);
  setAccessibleDescription(what);
  toggleViewAction()->setToolTip(what);
  connect(this, &QDockWidget::visibilityChanged, this, &LiveWindow::Changed);
}

void LiveWindow::AddWants(const Session&, LiveWants&) const {}

}  // namespace pallomir
