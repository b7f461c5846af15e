#pragma once

#include <QWidget>
#include <filesystem>

#include "pallomir/analyses/report.h"
#include "pallomir/session/world.h"

class QCustomPlot;
class QLabel;

namespace pallomir {

/// "Cluster 2 - TT1.Ntt".
QString ReportTitle(int c, const std::filesystem::path& spikeFile);

/// The page of the report about one cluster: figures, maps, waveforms, plots over time, note and remarks.
class ReportSheet : public QWidget {
 public:
  ReportSheet();

  /// Throws Interrupted when the user stops it.
  void Fill(World& world, const Report& report, const QString& title);
  /// Gives the maps their sizes, once the sheet is laid out on the screen.
  void Align();
  /// Lays a sheet of its own out without showing it, so that it can be printed.
  void LayOutUnseen();
  /// Shows the present date and time.
  void ShowTime();

  QString Title() const;

 private:
  QLabel* lblReportTitle_;
  QLabel* lblTime_;
  QLabel* lblFigures_;
  QLabel* lblClNote_;
  QLabel* lblRemarks_;
  QCustomPlot *picOccMap_, *picRateMap_, *picSpikeMap_, *picWaveForm_;
  QCustomPlot *picMaxHeight_, *picXPos_, *picYPos_, *picAngPos_;
};

}  // namespace pallomir
