#pragma once

#include <QPointer>
#include <memory>

#include "gui/controls/controls.h"
#include "gui/forms/cl_note_form.h"
#include "gui/forms/projections.h"
#include "gui/forms/waveforms_form.h"
#include "gui/forms/workbench.h"
#include "pallomir/analyses/commands.h"

namespace pallomir {

/// Commands that analyse the current cluster, its notes, and the centre of the maze.
class AnalysesPanel : public QWidget {
  Q_OBJECT

 public:
  AnalysesPanel(Workbench& bench, Projections& projections, QWidget* parent);

  /// The next click on the projection no longer sets the centre of the maze; false if it did not.
  bool DisarmCentre();
  /// The Cluster Notes form; null if it is not open.
  ClNoteForm* NotesForm() const { return clNote_; }

  /// Adds the panel's menus to one of the menu bar.
  void AddTo(QMenu* view);
  /// Adds what is written about all clusters to a menu.
  void AddReportsTo(QMenu* file);

 private:
  void MakeControls();
  void MakeMenus();
  void LayOut();
  void Connect();
  void cmdRateMap_Click();
  void cmdOccMap_Click();
  void cmd2DAutoCorr_Click();
  void cmdAutoCorr_Click();
  void cmdLogISI_Click();
  void cmdDirection_Click();
  void cmdReport_Click();
  void cmdShowWaveforms_Click();
  void cmdShowAvgWaveforms_Click();
  void cmdClNote_Click();
  void cmdWriteCenterFile_Click();
  void Projections_CenterChosen(Vertex at);

  /// Runs an analysis with the tools it needs; analyses of positions also need the position file.
  void Analyse(const std::function<void(const AnalysisTools&)>& analysis);
  void AnalysePlaces(const std::function<void(const AnalysisTools&)>& analysis);
  /// Which file an analysis of positions lacks, and where it comes from.
  QString MissingFileAdvice() const;
  std::string PositionName() const { return bench_.Names.PosFile; }
  /// Sets whether the next left click on the projection is the centre of the maze.
  void ArmCentre(bool armed);

  Workbench& bench_;
  Session& session_;
  Projections& projections_;
  std::unique_ptr<Components> components_;
  QPointer<ClNoteForm> clNote_;
  QPointer<Waveforms> waveforms_;
  QPushButton* cmdRateMap;
  QPushButton* cmdOccMap;
  QPushButton* cmd2DAutoCorr;
  QPushButton* cmdAutoCorr;
  QPushButton* cmdLogISI;
  QPushButton* cmdDirection;
  QPushButton* cmdReport;
  QPushButton* cmdShowWaveforms;
  QPushButton* cmdShowAvgWaveforms;
  QPushButton* cmdClNote;
  QLineEdit* txtPosFile;
  QPushButton* cmdWriteCenterFile;
  QLineEdit* txtCenterFile;
  QMenu* mnuRateMap;
  QMenu* mnu2DAutoCorr;
};

}  // namespace pallomir
