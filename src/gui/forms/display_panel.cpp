#include "gui/forms/display_panel.h"

namespace pallomir {

DisplayPanel::DisplayPanel(QWidget* parent) : QWidget(parent) {
  optDrawClustBounds = MakeOption("optDrawClustBounds", "Draw &bounds",
                                  "The mouse draws: left click for each corner, right click for the last one.");
  optZoom = MakeOption("optZoom", "&Zoom", "The mouse zooms: drag a rectangle to look closer.");
  optDrawClustBounds->setChecked(true);
  cmdPointDown = MakeButton("cmdPointDown", "−", "Smaller points");
  cmdPointUp = MakeButton("cmdPointUp", "+", "Larger points");
  cmdPointDown->setAccessibleName("Smaller points");
  cmdPointUp->setAccessibleName("Larger points");
  cmdRandomX = MakeButton("cmdRandomX", "X", "Spread points at random by up to half a unit along X");
  cmdRandomY = MakeButton("cmdRandomY", "Y", "Spread points at random by up to half a unit along Y");
  cmdRandomX->setAccessibleName("Spread points along X");
  cmdRandomY->setAccessibleName("Spread points along Y");
  cmdRandomX->setCheckable(true);
  cmdRandomY->setCheckable(true);
  cmdRedraw =
      MakeButton("cmdRedraw", "&Redraw", "Draw the points afresh. Right click to watch them appear one at a time.");
  cmdClear = MakeButton("cmdClear", "&Clear", "Clear the picture");
  chkDownsample = MakeCheckBox("chkDownsample", "Downsa&mple", "Draw only a random part of the points");
  txtDownsampleFraction = MakeTextBox("txtDownsampleFraction", "Part of the points to draw",
                                      "Part of the points to draw, 0 to 1", 4, "0.5");
  txtDelay = MakeTextBox("txtDelay", "Draw Speed",
                         "Change the rate at which the display is drawn.  A higher number indicates a faster speed.", 6,
                         "250000");
  chkWhiteBackground = MakeCheckBox("chkWhiteBackground", "&White", "White background, for print");
  chkAxesOff = MakeCheckBox("chkAxesOff", "Axes off", "Draw no axes");
  chkDrawClustBounds =
      MakeCheckBox("chkDrawClustBounds", "S&how bounds", "Draw the boundaries that were made in this projection");
  chkDrawClustBounds->setChecked(true);

  auto* mouse = new QButtonGroup(this);
  mouse->addButton(optDrawClustBounds);
  mouse->addButton(optZoom);
  for (QPushButton* narrow : {cmdPointDown, cmdPointUp, cmdRandomX, cmdRandomY}) narrow->setFixedWidth(28);
  txtDelay->setMaximumWidth(txtDelay->minimumWidth());
  txtDownsampleFraction->setMaximumWidth(txtDownsampleFraction->minimumWidth());
  auto* speed = MakeLabel("Draw S&peed", txtDelay);
  speed->setToolTip(txtDelay->toolTip());

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(5);
  column->addLayout(Row({optDrawClustBounds, optZoom, nullptr, MakeLabel("Points"), cmdPointDown, cmdPointUp, nullptr,
                         MakeLabel("Spread"), cmdRandomX, cmdRandomY, nullptr, cmdClear, cmdRedraw},
                        5));
  column->addLayout(Row({chkDrawClustBounds, chkWhiteBackground, chkAxesOff, nullptr, chkDownsample,
                         txtDownsampleFraction, nullptr, speed, txtDelay},
                        5));
}

}  // namespace pallomir
