#pragma once

#include <QMenu>
#include <QPointer>

#include "gui/forms/workbench.h"

namespace pallomir {

/// The menu Help.
class HelpMenu : public QMenu {
  Q_OBJECT

 public:
  HelpMenu(Workbench& bench, QWidget* parent);

  /// The guide that belongs to a program in `folder`, installed or among its sources; empty if there is none.
  static QString GuideFor(const QString& folder);

 private:
  void mnuKeys_Click();
  void mnuGuide_Click();
  void mnuAbout_Click();

  Workbench& bench_;
  QPointer<QWidget> keys_;
};

}  // namespace pallomir
