#include "gui/forms/display_panel.h"

#include <cmath>

#include "gui/controls/event_hook.h"
#include "pallomir/projection/colours.h"

namespace pallomir {

namespace {

constexpr double kUsualBatch = 250000;

}  // namespace

DisplayPanel::DisplayPanel(Workbench& bench, Projections& projections, QWidget* parent)
    : QWidget(parent), bench_(bench), session_(bench.TheSession()), projections_(projections) {
  MakeControls();
  LayOut();
  Connect();
  SetOptions();
}

void DisplayPanel::MakeControls() {
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
  cmdRedraw = MakeButton("cmdRedraw", "&Redraw", "Redraw the points. Right click to watch them appear one at a time.");
  cmdClear = MakeButton("cmdClear", "&Clear", "Clear the picture");
  chkDownsample = MakeCheckBox("chkDownsample", "Downsa&mple", "Draw only a random part of the points");
  txtDownsampleFraction = MakeTextBox("txtDownsampleFraction", "Part of the points to draw",
                                      "Part of the points to draw, 0 to 1", 4, "0.5");
  txtDelay = MakeTextBox("txtDelay", "Draw Speed",
                         "Change the rate at which the display is drawn.  A higher number indicates a faster speed.", 6,
                         "250000");
  chkWhiteBackground = MakeCheckBox("chkWhiteBackground", "&White", "White background, for printing");
  chkAxesOff = MakeCheckBox("chkAxesOff", "Axes off", "Draw no axes");
  chkDrawClustBounds =
      MakeCheckBox("chkDrawClustBounds", "S&how bounds", "Draw the boundaries made in this projection");
  chkDrawClustBounds->setChecked(true);
  // These two come back at the next start.
  const auto entry = [this](const QString& name, const QString& caption, const QString& toolTip) {
    auto* made = new QAction(caption, this);
    made->setObjectName(name);
    made->setToolTip(toolTip);
    made->setCheckable(true);
    made->setChecked(bench_.ThePreferences().Get(name, false));
    connect(made, &QAction::toggled, this, [this, name](bool chosen) { bench_.ThePreferences().Set(name, chosen); });
    return made;
  };
  mnuDensity = entry("mnuDensity", "Density\tD", "Shade points by how many lie on a pixel (D in the projection)");
  mnuSafeColours = entry("mnuSafeColours", "Colours safe for colour-blind eyes",
                         "Give the clusters colours that differ without red or green receptors too");
  session_.SafeColours = mnuSafeColours->isChecked();
}

void DisplayPanel::AddTo(QMenu* view) {
  view->setToolTipsVisible(true);
  view->addActions({mnuDensity, mnuSafeColours});
}

void DisplayPanel::LayOut() {
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

void DisplayPanel::Connect() {
  for (const QAbstractButton* button :
       std::initializer_list<const QAbstractButton*>{optZoom, chkAxesOff, chkDrawClustBounds, chkDownsample})
    connect(button, &QAbstractButton::toggled, this, &DisplayPanel::SetOptions);
  for (const QLineEdit* box : {txtDownsampleFraction, txtDelay})
    connect(box, &QLineEdit::textChanged, this, &DisplayPanel::SetOptions);
  bench_.OnClick(cmdPointUp, this, &DisplayPanel::cmdPointUp_Click);
  bench_.OnClick(cmdPointDown, this, &DisplayPanel::cmdPointDown_Click);
  bench_.OnClick(cmdRandomX, this, &DisplayPanel::cmdRandomX_Click);
  bench_.OnClick(cmdRandomY, this, &DisplayPanel::cmdRandomY_Click);
  bench_.OnClick(cmdRedraw, this, &DisplayPanel::cmdRedraw_Click);
  OnRightPress(cmdRedraw, [this] { bench_.Run([this] { cmdRedraw_MouseDown(); }); });
  bench_.OnClick(cmdClear, this, &DisplayPanel::cmdClear_Click);
  bench_.On(mnuDensity, &QAction::triggered, [this] { mnuDensity_Click(); });
  bench_.On(mnuSafeColours, &QAction::triggered, [this] { mnuSafeColours_Click(); });
  connect(&projections_, &Projections::DensityAsked, mnuDensity, &QAction::trigger);
  bench_.OnClick(chkWhiteBackground, this, &DisplayPanel::chkWhiteBackground_Click);
  for (const QCheckBox* box : {chkAxesOff, chkDrawClustBounds, chkDownsample})
    bench_.OnClick(box, this, &DisplayPanel::chkOption_Click);
}

void DisplayPanel::SetOptions() {
  ProjectionOptions options;
  options.Zoom = optZoom->isChecked();
  options.DrawBoundaries = chkDrawClustBounds->isChecked();
  options.AxesOff = chkAxesOff->isChecked();
  options.Density = mnuDensity->isChecked();
  const double batch = std::nearbyint(NumberIn(txtDelay).value_or(kUsualBatch));
  options.Batch = static_cast<size_t>(std::clamp(batch, 1.0, 1e15));
  if (chkDownsample->isChecked()) {
    options.DownsampleFraction = SingleIn(txtDownsampleFraction);
    if (!options.DownsampleFraction) options.CountNote = ": the part of the points to draw is not a number";
  }
  projections_.SetOptions(options);
}

void DisplayPanel::cmdPointUp_Click() {
  session_.PointSize = session_.PointSize >= 1 ? session_.PointSize + 1 : 1;
  projections_.Redraw();
}

void DisplayPanel::cmdPointDown_Click() {
  session_.PointSize = session_.PointSize > 1 ? session_.PointSize - 1 : 0.5F;
  projections_.Redraw();
}

void DisplayPanel::cmdRandomX_Click() {
  session_.RandomX = cmdRandomX->isChecked();
  projections_.Redraw();
}

void DisplayPanel::cmdRandomY_Click() {
  session_.RandomY = cmdRandomY->isChecked();
  projections_.Redraw();
}

void DisplayPanel::cmdRedraw_MouseDown() {
  if (projections_.SlowRedrawRunning())
    projections_.StopSlowRedraw();
  else
    projections_.StartSlowRedraw();
}

void DisplayPanel::chkWhiteBackground_Click() {
  session_.WhiteBackground = chkWhiteBackground->isChecked();
  BuildColourTable(session_);
  projections_.RedrawIfLoaded();
}

void DisplayPanel::mnuDensity_Click() {
  SetOptions();
  projections_.RedrawIfLoaded();
}

void DisplayPanel::mnuSafeColours_Click() {
  session_.SafeColours = mnuSafeColours->isChecked();
  BuildColourTable(session_);
  emit bench_.ColoursChanged();
  projections_.RedrawIfLoaded();
}

}  // namespace pallomir
