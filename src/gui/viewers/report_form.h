#pragma once

#include <QMainWindow>
#include <QTimer>
#include <array>

#include "gui/controls/dialogs.h"
#include "pallomir/analyses/report.h"

class QCustomPlot;
class QGridLayout;
class QLabel;

namespace pallomir {

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
  static QCustomPlot* AddPicture(QGridLayout* grid, const QString& name, const QString& caption, int row, int column);
  void MakeMenu();
  void Timer1_Timer();
  void mnuFilePrint_Click();
  void mnuFileSave_Click();

  World& world_;
  Dialogs& dialogs_;
  QString fileName_;
  QWidget* sheet_;
  QLabel* lblReportTitle_;
  QLabel* lblTime_;
  QLabel* lblFigures_;
  QLabel* lblClNote_;
  QLabel* lblRemarks_;
  QCustomPlot *picOccMap_, *picRateMap_, *picSpikeMap_, *picWaveForm_;
  QCustomPlot *picMaxHeight_, *picXPos_, *picYPos_, *picAngPos_;
  QTimer Timer1_;
};

}  // namespace pallomir
