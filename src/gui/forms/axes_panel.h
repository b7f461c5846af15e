#pragma once

#include <array>
#include <string>

#include "gui/controls/controls.h"
#include "pallomir/session/session.h"

namespace pallomir {

/// The two displayed parameters and the scales of their axes.
class AxesPanel : public QWidget {
  Q_OBJECT

 public:
  explicit AxesPanel(QWidget* parent);

  /// Fills both lists with the parameter names, so that a list index is a parameter index.
  void FillLists(const ByParameter<std::string>& names);

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
};

}  // namespace pallomir
