#pragma once

#include "gui/controls/controls.h"

namespace pallomir {

/// Settings for drawing points and for the mouse in the projection.
class DisplayPanel : public QWidget {
  Q_OBJECT

 public:
  explicit DisplayPanel(QWidget* parent);

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
};

}  // namespace pallomir
