#pragma once

#include <QMainWindow>
#include <QTimer>

#include "gui/controls/dialogs.h"
#include "pallomir/analyses/report.h"

namespace pallomir {

class ReportSheet;

/// "Analysis Report Sheet": one page about one cluster, for printing or saving.
class ReportForm : public QMainWindow {
  Q_OBJECT

 public:
  /// About cluster `c` of the tetrode.
  ReportForm(World& world, Dialogs& dialogs, QWidget* parent, const QString& tetrode, int c);

  /// Throws Interrupted when the user stops it.
  void Show(const Report& report, const QString& title);

 private:
  void LayOut();
  void MakeMenu();
  void mnuFilePrint_Click();
  void mnuFileSave_Click();

  World& world_;
  Dialogs& dialogs_;
  QString fileName_;
  ReportSheet* sheet_;
  QTimer Timer1_;
};

}  // namespace pallomir
