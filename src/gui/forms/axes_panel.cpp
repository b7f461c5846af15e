#include "gui/forms/axes_panel.h"

namespace pallomir {

namespace {

QListWidget* MakeList(const QString& name, const QString& accessibleName, const QString& toolTip) {
  auto* list = Named(new QListWidget, name, accessibleName, toolTip);
  list->setUniformItemSizes(true);
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list->setMinimumWidth(list->fontMetrics().horizontalAdvance("MaxHeight-8") + 30);
  list->setMinimumHeight(160);
  return list;
}

}  // namespace

AxesPanel::AxesPanel(QWidget* parent) : QWidget(parent) {
  lstX_Axis = MakeList("lstX_Axis", "X axis",
                       "Horizontal axis. A choice here takes effect with the next click or key in the Y list.");
  lstY_Axis = MakeList("lstY_Axis", "Y axis", "Vertical axis. A click or key here shows the two chosen parameters.");
  cmdScaleUp = MakeButton("cmdScaleUp", "Scale &Up", "Zoom in: both axes shrink to three fifths about their centres.");
  cmdScaleDown =
      MakeButton("cmdScaleDown", "Scale &Down", "Zoom out: both axes grow to seven fifths about their centres.");
  cmdScaleDefaults = MakeButton("cmdScaleDefaults", "Defaul&ts", "Both axes to the range of the first loaded data.");
  cmdRestoreAxes = MakeButton("cmdRestoreAxes", "Axis Scale",
                              "Restores axis scales for ALL parameters from File.  Right click to save Current Axes.");
  txtLower = MakeTextBox("txtLower", "Lower end of an axis", "Lower end for Set X and Set Y.", 5);
  txtUpper = MakeTextBox("txtUpper", "Upper end of an axis", "Upper end for Set X and Set Y.", 5);
  txtLower->setPlaceholderText("lower");
  txtUpper->setPlaceholderText("upper");
  cmdscaleXaxis =
      MakeButton("cmdscaleXaxis", "Set X",
                 "Give the X axis these two ends, from the next redraw on. Right click for all parameters.");
  cmdscaleYaxis =
      MakeButton("cmdscaleYaxis", "Set Y",
                 "Give the Y axis these two ends, from the next redraw on. Right click for all parameters.");

  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(4);
  auto* xHeading = MakeHeading("&X axis");
  auto* yHeading = MakeHeading("&Y axis");
  xHeading->setBuddy(lstX_Axis);
  yHeading->setBuddy(lstY_Axis);
  grid->setRowMinimumHeight(0, 25);  // the height of the button beside it
  grid->addWidget(xHeading, 0, 0);
  grid->addWidget(yHeading, 0, 1);
  grid->addWidget(lstX_Axis, 1, 0);
  grid->addWidget(lstY_Axis, 1, 1);
  grid->setRowStretch(1, 1);
  auto* buttons = new QGridLayout;
  buttons->setSpacing(4);
  buttons->addWidget(cmdScaleUp, 0, 0);
  buttons->addWidget(cmdScaleDown, 0, 1);
  buttons->addWidget(cmdScaleDefaults, 0, 2);
  buttons->addWidget(cmdRestoreAxes, 0, 3);
  buttons->addWidget(txtLower, 1, 0);
  buttons->addWidget(txtUpper, 1, 1);
  buttons->addWidget(cmdscaleXaxis, 1, 2);
  buttons->addWidget(cmdscaleYaxis, 1, 3);
  for (int column = 0; column < 4; ++column) buttons->setColumnStretch(column, 1);
  grid->addLayout(buttons, 2, 0, 1, 2);
}

void AxesPanel::FillLists(const ByParameter<std::string>& names) {
  for (QListWidget* list : {lstX_Axis, lstY_Axis}) {
    const int row = list->currentRow();
    list->clear();
    for (int p = 0; p < kParameters; ++p) list->addItem(QString::fromStdString(names[p]));
    list->setCurrentRow(row);
  }
}

}  // namespace pallomir
