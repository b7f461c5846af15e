#pragma once

#include <string>

#include "gui/controls/controls.h"
#include "gui/forms/projections.h"
#include "gui/forms/workbench.h"
#include "pallomir/clusters/axis_scaling.h"

namespace pallomir {

/// The two displayed parameters and the scales of their axes.
class AxesPanel : public QWidget {
  Q_OBJECT

 public:
  AxesPanel(Workbench& bench, Projections& projections, QWidget* parent);

  /// Fills both lists with the session's parameter names and selects the two displayed ones.
  void ShowParameters();

  void mnuWriteAxesScaleFile_Click();

  /// Adds the panel's menus to one of the menu bar.
  void AddTo(QMenu* view);

 signals:
  /// Other parameters were chosen for the axes, and are shown.
  void ProjectionChosen();

 private:
  void MakeControls();
  void MakeMenus();
  void LayOut();
  void Connect();
  void lstY_Axis_Up();
  void cmdScaleUp_Click();
  void cmdScaleDown_Click();
  void cmdScaleDefaults_Click();
  void cmdscaleXaxis_Click() { SetTypedAxis(session_.XParameter); }
  void cmdscaleYaxis_Click() { SetTypedAxis(session_.YParameter); }
  void mnuApplyXscaleToAllParameters_Click();
  void mnuApplyYscaleToAllParameters_Click() { mnuApplyXscaleToAllParameters_Click(); }
  void mnuRestoreAxesScaleFromFile_Click();
  /// Runs lstY_Axis_Up() for a click or key in the Y list, after the list itself has handled it.
  void HookYList();
  void ShowPendingAxis();
  /// Moves both axes on by so many parameters.
  void StepAxes(int x, int y);
  TypedRange Typed() const;
  void SetTypedAxis(int parameter);

  Workbench& bench_;
  Session& session_;
  Projections& projections_;
  bool listKeyDown_ = false;
  QListWidget* lstX_Axis;
  QListWidget* lstY_Axis;
  QPushButton* cmdScaleUp;
  QPushButton* cmdScaleDown;
  QPushButton* cmdScaleDefaults;
  QPushButton* cmdRestoreAxes;
  QLineEdit* txtLower;
  QLineEdit* txtUpper;
  QPushButton* cmdscaleXaxis;
  QPushButton* cmdscaleYaxis;
  QMenu* mnuscaleXaxis;
  QMenu* mnuscaleYAxis;
  QMenu* mnuAxesScaleFile;
};

}  // namespace pallomir
