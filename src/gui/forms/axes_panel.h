#pragma once

#include <string>

#include "gui/controls/controls.h"
#include "gui/forms/projections.h"
#include "gui/forms/workbench.h"
#include "pallomir/clusters/axis_scaling.h"
#include "pallomir/projection/view.h"

namespace pallomir {

/// The two displayed parameters and the scales of their axes.
class AxesPanel : public QWidget {
  Q_OBJECT

 public:
  AxesPanel(Workbench& bench, Projections& projections, QWidget* parent);

  /// Fills both lists with the session's parameter names and selects the two displayed ones.
  void ShowParameters();

  /// Displays two parameters.
  void ShowPair(ParameterPair pair);

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
  /// Steps an axis to the next parameter that is not 0 in all spikes; x and y are -1, 0 or 1.
  void StepAxes(int x, int y);
  void StepPairs(int direction);
  /// Dims the parameters that are 0 in all loaded spikes.
  void DimZeros();
  TypedRange Typed() const;
  void SetTypedAxis(int parameter);

  Workbench& bench_;
  Session& session_;
  Projections& projections_;
  bool listKeyDown_ = false;
  ByParameter<bool> dimmed_{};
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
