#include "gui/forms/axes_panel.h"

#include "gui/controls/event_hook.h"
#include "pallomir/projection/useful_parameters.h"
#include "pallomir/session/axis_scale_file.h"

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

AxesPanel::AxesPanel(Workbench& bench, Projections& projections, QWidget* parent)
    : QWidget(parent), bench_(bench), session_(bench.TheSession()), projections_(projections) {
  MakeControls();
  MakeMenus();
  LayOut();
  Connect();
}

void AxesPanel::MakeControls() {
  lstX_Axis = MakeList("lstX_Axis", "X axis",
                       "Horizontal axis. A choice here takes effect with the next click or key in the Y list.");
  lstY_Axis = MakeList("lstY_Axis", "Y axis", "Vertical axis. A click or key here shows the two chosen parameters.");
  cmdScaleUp = MakeButton("cmdScaleUp", "Scale &Up", "Zoom in: narrow both axes to three fifths about their centres.");
  cmdScaleDown =
      MakeButton("cmdScaleDown", "Scale &Down", "Zoom out: widen both axes to seven fifths about their centres.");
  cmdScaleDefaults =
      MakeButton("cmdScaleDefaults", "Defaul&ts", "Set both axes to the range of the data loaded first.");
  cmdRestoreAxes = MakeButton("cmdRestoreAxes", "Axis Scale",
                              "Restores axis scales for ALL parameters from File.  Right click to save Current Axes.");
  txtLower = MakeTextBox("txtLower", "Lower end of an axis", "Lower end for Set X and Set Y.", 5);
  txtUpper = MakeTextBox("txtUpper", "Upper end of an axis", "Upper end for Set X and Set Y.", 5);
  txtLower->setPlaceholderText("lower");
  txtUpper->setPlaceholderText("upper");
  cmdscaleXaxis =
      MakeButton("cmdscaleXaxis", "Set X",
                 "Set the X axis to these two ends, from the next redraw on. Right click for all parameters.");
  cmdscaleYaxis =
      MakeButton("cmdscaleYaxis", "Set Y",
                 "Set the Y axis to these two ends, from the next redraw on. Right click for all parameters.");
}

void AxesPanel::MakeMenus() {
  mnuscaleXaxis = MakeMenu(this, "mnuscaleXaxis", "Scale X axis");
  bench_.On(MakeEntry(mnuscaleXaxis, "mnuApplyXscaleToAllParameters", "Apply to All Parameters"), &QAction::triggered,
            [this] { mnuApplyXscaleToAllParameters_Click(); });
  mnuscaleYAxis = MakeMenu(this, "mnuscaleYAxis", "Scale Y axis");
  bench_.On(MakeEntry(mnuscaleYAxis, "mnuApplyYscaleToAllParameters", "Apply to All Parameters"), &QAction::triggered,
            [this] { mnuApplyYscaleToAllParameters_Click(); });
  // Both buttons open the X menu; the Y entry does the same.
  OpenByRightClick(cmdscaleXaxis, mnuscaleXaxis);
  OpenByRightClick(cmdscaleYaxis, mnuscaleXaxis);
  mnuAxesScaleFile = MakeMenu(this, "mnuAxesScaleFile", "AxesScaleFile");
  bench_.On(MakeEntry(mnuAxesScaleFile, "mnuWriteAxesScaleFile", "Write Current Axes Scales to File"),
            &QAction::triggered, [this] { mnuWriteAxesScaleFile_Click(); });
  bench_.On(MakeEntry(mnuAxesScaleFile, "mnuRestoreAxesScaleFromFile", "Restore Axes Scale from File"),
            &QAction::triggered, [this] { mnuRestoreAxesScaleFromFile_Click(); });
  OpenByRightClick(cmdRestoreAxes, mnuAxesScaleFile);
}

void AxesPanel::AddTo(QMenu* view) {
  view->addMenu(mnuscaleXaxis)->setText("Scale of all axes");
  view->addMenu(mnuAxesScaleFile)->setText("Axis scales in a file");
}

void AxesPanel::LayOut() {
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

void AxesPanel::Connect() {
  HookYList();
  connect(lstX_Axis, &QListWidget::currentRowChanged, this, &AxesPanel::ShowPendingAxis);
  connect(&bench_, &Workbench::CutChanged, this, &AxesPanel::DimZeros);
  bench_.On(&projections_, &Projections::StepAxes, [this](int x, int y) { StepAxes(x, y); });
  bench_.On(&projections_, &Projections::StepPairs, [this](int direction) { StepPairs(direction); });
  bench_.OnClick(cmdScaleUp, this, &AxesPanel::cmdScaleUp_Click);
  bench_.OnClick(cmdScaleDown, this, &AxesPanel::cmdScaleDown_Click);
  bench_.OnKey(Qt::Key_Plus, [this] { cmdScaleUp_Click(); });
  bench_.OnKey(Qt::Key_Minus, [this] { cmdScaleDown_Click(); });
  bench_.OnClick(cmdScaleDefaults, this, &AxesPanel::cmdScaleDefaults_Click);
  bench_.OnClick(cmdscaleXaxis, this, &AxesPanel::cmdscaleXaxis_Click);
  bench_.OnClick(cmdscaleYaxis, this, &AxesPanel::cmdscaleYaxis_Click);
  bench_.OnClick(cmdRestoreAxes, this, &AxesPanel::mnuRestoreAxesScaleFromFile_Click);
}

void AxesPanel::HookYList() {
  const auto up = [this] {
    QTimer::singleShot(0, this, [this] { bench_.Run([this] { lstY_Axis_Up(); }); });
    return false;
  };
  HookEvents(lstY_Axis->viewport(),
             [up](QEvent* event) { return event->type() == QEvent::MouseButtonRelease && up(); });
  // A key that was pressed elsewhere, in a message box that has closed since, does not count as the list's.
  HookEvents(lstY_Axis, [this, up](QEvent* event) {
    if (event->type() == QEvent::KeyPress) listKeyDown_ = true;
    return event->type() == QEvent::KeyRelease && std::exchange(listKeyDown_, false) && up();
  });
}

void AxesPanel::ShowParameters() {
  for (QListWidget* list : {lstX_Axis, lstY_Axis}) {
    list->clear();
    for (int p = 0; p < kParameters; ++p) list->addItem(QString::fromStdString(session_.ParameterNames[p]));
  }
  lstX_Axis->setCurrentRow(session_.XParameter);
  lstY_Axis->setCurrentRow(session_.YParameter);
}

void AxesPanel::lstY_Axis_Up() {
  session_.XParameter = static_cast<int16_t>(lstX_Axis->currentRow());
  session_.YParameter = static_cast<int16_t>(lstY_Axis->currentRow());
  ShowPendingAxis();
  projections_.Redraw();
  emit ProjectionChosen();
}

void AxesPanel::StepAxes(int x, int y) {
  const auto stepped = [this](int p, int direction) { return direction == 0 ? p : NextUseful(session_, p, direction); };
  ShowPair({stepped(session_.XParameter, x), stepped(session_.YParameter, y)});
}

void AxesPanel::StepPairs(int direction) {
  if (const auto pair = NextPair(session_, direction))
    ShowPair(*pair);
  else
    bench_.Say("No two wires are in use.");
}

void AxesPanel::ShowPair(ParameterPair pair) {
  lstX_Axis->setCurrentRow(pair.X);
  lstY_Axis->setCurrentRow(pair.Y);
  lstY_Axis_Up();
}

void AxesPanel::DimZeros() {
  if (dimmed_ == session_.AllZero) return;
  dimmed_ = session_.AllZero;
  const QBrush quiet = palette().brush(QPalette::Disabled, QPalette::Text);
  for (const QListWidget* list : {lstX_Axis, lstY_Axis})
    for (int p = 0; p < list->count(); ++p) {
      QListWidgetItem* item = list->item(p);
      item->setData(Qt::ForegroundRole, dimmed_[p] ? QVariant(quiet) : QVariant());
      item->setToolTip(dimmed_[p] ? "0 in all loaded spikes" : QString());
    }
}

void AxesPanel::ShowPendingAxis() {
  const auto* chosen = lstX_Axis->currentItem();
  bench_.Say(!chosen || lstX_Axis->currentRow() == session_.XParameter
                 ? QString()
                 : QString("%1 will be shown with the next click or key in the Y list.").arg(chosen->text()));
}

void AxesPanel::cmdScaleUp_Click() {
  ScaleUp(session_);
  projections_.Redraw();
}

void AxesPanel::cmdScaleDown_Click() {
  ScaleDown(session_);
  projections_.Redraw();
}

void AxesPanel::cmdScaleDefaults_Click() {
  ScaleDefaults(session_);
  projections_.Redraw();
}

TypedRange AxesPanel::Typed() const {
  return {NumberIn(txtLower), NumberIn(txtUpper)};
}

void AxesPanel::SetTypedAxis(int parameter) {
  const TypedRange range = Typed();
  SetAxis(session_, parameter, range);
  bench_.Say(range.Lower || range.Upper ? "The new range takes effect at the next redraw."
                                        : "Type the lower or the upper end first.");
}

void AxesPanel::mnuApplyXscaleToAllParameters_Click() {
  SetAllAxes(session_, Typed());
  projections_.Redraw();
}

void AxesPanel::mnuWriteAxesScaleFile_Click() {
  bench_.AskBeforeReplacing({AxesScaleFilePath(session_)});
  WriteAxesScaleFile(session_);
  bench_.Say("The axis scales were written.");
}

void AxesPanel::mnuRestoreAxesScaleFromFile_Click() {
  bench_.AdviseOnFailure("Exit, or a right click on Axis Scale, writes the axis scales.");
  ReadAxesScaleFile(session_);
  projections_.Redraw();
}

}  // namespace pallomir
