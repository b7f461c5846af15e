#pragma once

#include "gui/controls/controls.h"
#include "gui/forms/projections.h"
#include "gui/forms/workbench.h"

namespace pallomir {

/// Settings for drawing points and for the mouse in the projection.
class DisplayPanel : public QWidget {
  Q_OBJECT

 public:
  DisplayPanel(Workbench& bench, Projections& projections, QWidget* parent);

  /// Adds the panel's entries to a menu.
  void AddTo(QMenu* view);

 private:
  void MakeControls();
  void LayOut();
  void Connect();
  void cmdPointUp_Click();
  void cmdPointDown_Click();
  void cmdRandomX_Click();
  void cmdRandomY_Click();
  void cmdRedraw_Click() { projections_.Redraw(); }
  void cmdRedraw_MouseDown();
  void cmdClear_Click() { projections_.Clear(); }
  void chkWhiteBackground_Click();
  void mnuDensity_Click();
  void mnuSafeColours_Click();
  /// For chkAxesOff, chkDrawClustBounds and chkDownsample.
  void chkOption_Click() { projections_.RedrawIfLoaded(); }
  /// Gives the settings to the projection.
  void SetOptions();

  Workbench& bench_;
  Session& session_;
  Projections& projections_;
  QRadioButton* optDrawClustBounds;
  QRadioButton* optZoom;
  QPushButton* cmdPointUp;
  QPushButton* cmdPointDown;
  QPushButton* cmdRandomX;
  QPushButton* cmdRandomY;
  QPushButton* cmdRedraw;
  QPushButton* cmdClear;
  QCheckBox* chkDownsample;
  QLineEdit* txtDownsampleFraction;
  QLineEdit* txtDelay;
  QCheckBox* chkWhiteBackground;
  QCheckBox* chkAxesOff;
  QCheckBox* chkDrawClustBounds;
  QAction* mnuDensity;
  QAction* mnuSafeColours;
};

}  // namespace pallomir
