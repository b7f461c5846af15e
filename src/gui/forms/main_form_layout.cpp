#include "gui/controls/controls.h"
#include "gui/forms/analyses_panel.h"
#include "gui/forms/axes_panel.h"
#include "gui/forms/cluster_panel.h"
#include "gui/forms/display_panel.h"
#include "gui/forms/edit_panel.h"
#include "gui/forms/files_panel.h"
#include "gui/forms/main_form.h"
#include "gui/forms/range_panel.h"
#include "gui/forms/status_line.h"

namespace pallomir {

namespace {

QFrame* Line() {
  auto* line = new QFrame;
  line->setFrameShape(QFrame::HLine);
  line->setFrameShadow(QFrame::Sunken);
  return line;
}

QMenu* PopupMenu(QWidget* parent, const QString& name, const QString& title) {
  auto* menu = new QMenu(title, parent);
  menu->setObjectName(name);
  return menu;
}

QAction* MenuEntry(QMenu* menu, const QString& name, const QString& caption) {
  QAction* entry = menu->addAction(caption);
  entry->setObjectName(name);
  return entry;
}

}  // namespace

void Main_Form::LayOut() {
  setObjectName("Main_Form");
  setWindowTitle("Cluster cutting controls");
  range_ = new RangePanel(this);
  axes_ = new AxesPanel(this);
  clusters_ = new ClusterPanel(this);
  display_ = new DisplayPanel(this);
  edit_ = new EditPanel(this);
  files_ = new FilesPanel(this);
  analyses_ = new AnalysesPanel(this);
  auto* tabs = Named(new QTabWidget, "tabs", "Commands", "");
  tabs->addTab(edit_, "Ed&it cut");
  tabs->addTab(files_, "&Files");
  tabs->addTab(analyses_, "&Analyse");
  tabs->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
  txtMessages_ = Named(new QPlainTextEdit, "txtMessages", "Messages", "What was done, newest last");
  txtMessages_->setReadOnly(true);
  txtMessages_->setTabChangesFocus(true);
  txtMessages_->setPlaceholderText("Messages");
  // Takes the space left by the controls.
  txtMessages_->setMinimumHeight(2 * txtMessages_->fontMetrics().lineSpacing() + 10);
  txtMessages_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);

  auto* middle = new QHBoxLayout;
  middle->setSpacing(10);
  middle->addWidget(axes_, 5);
  middle->addWidget(clusters_, 4);
  auto* column = new QVBoxLayout;
  column->setContentsMargins(10, 6, 10, 0);
  column->setSpacing(4);
  column->addWidget(range_);
  column->addLayout(middle);
  column->addWidget(Line());
  column->addWidget(display_);
  column->addWidget(tabs);
  column->addWidget(txtMessages_, 1);
  controls_ = new QWidget;
  controls_->setLayout(column);
  // On a low screen the controls scroll.
  auto* scroll = new QScrollArea;
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setWidgetResizable(true);
  scroll->setWidget(controls_);
  setCentralWidget(scroll);
  status_ = new StatusLine;
  status_->setProperty("quiet", true);
  status_->setContentsMargins(8, 0, 0, 0);
  setAttribute(Qt::WA_AlwaysShowToolTips);
  statusBar()->addWidget(status_, 1);
  statusBar()->setSizeGripEnabled(false);
  MakeMenus();
}

void Main_Form::PlaceWindows() {
  // Side by side on the screen, with room for the window frames.
  constexpr int kFrame = 6, kTitle = 30, kHighest = 900, kNarrowest = 560, kNarrowestView = 400, kWidestView = 1100;
  const QRect screen = this->screen()->availableGeometry().adjusted(kFrame, kTitle, -kFrame, -kFrame);
  const int height = std::min(screen.height(), kHighest), bars = menuBar()->sizeHint().height() + statusBar()->height();
  const QSize least = controls_->minimumSizeHint();
  const int scrollBar = least.height() + bars > height ? style()->pixelMetric(QStyle::PM_ScrollBarExtent) : 0;
  centralWidget()->setMinimumWidth(least.width() + scrollBar);
  const int width = std::max(least.width() + scrollBar, kNarrowest);
  setGeometry(screen.left(), screen.top(), width, height);
  const int left = screen.left() + width + 2 * kFrame;
  projections_->setGeometry(left, screen.top(), std::clamp(screen.right() + 1 - left, kNarrowestView, kWidestView),
                            height);
}

void Main_Form::MakeMenus() {
  mnuscaleXaxis_ = PopupMenu(this, "mnuscaleXaxis", "Scale X axis");
  mnuscaleYAxis_ = PopupMenu(this, "mnuscaleYAxis", "Scale Y axis");
  const auto entry = [this](QMenu* menu, const QString& name, const QString& caption, void (Main_Form::*handler)()) {
    connect(MenuEntry(menu, name, caption), &QAction::triggered, this,
            [this, handler] { Run([this, handler] { (this->*handler)(); }); });
  };
  QMenu* readCBFile = PopupMenu(this, "mnuReadCBFile", "ReadCBFile");
  entry(readCBFile, "mnuReadEntireCBFile", "Read Entire CBFile", &Main_Form::cmdReadCBFile_Click);
  entry(readCBFile, "mnuReadSelectedClusters", "Read Selected Clusters", &Main_Form::mnuReadSelectedClusters_Click);
  QMenu* axesScaleFile = PopupMenu(this, "mnuAxesScaleFile", "AxesScaleFile");
  entry(axesScaleFile, "mnuWriteAxesScaleFile", "Write Current Axes Scales to File",
        &Main_Form::mnuWriteAxesScaleFile_Click);
  entry(axesScaleFile, "mnuRestoreAxesScaleFromFile", "Restore Axes Scale from File",
        &Main_Form::mnuRestoreAxesScaleFromFile_Click);
  entry(mnuscaleXaxis_, "mnuApplyXscaleToAllParameters", "Apply to All Parameters",
        &Main_Form::mnuApplyXscaleToAllParameters_Click);
  entry(mnuscaleYAxis_, "mnuApplyYscaleToAllParameters", "Apply to All Parameters",
        &Main_Form::mnuApplyYscaleToAllParameters_Click);
  QMenu* loadPoints = PopupMenu(this, "mnuLoadPoints", "LoadPoints");
  entry(loadPoints, "mnuLoadMultipleEpochs", "Load Multiple Epochs", &Main_Form::mnuLoadMultipleEpochs_Click);
  const auto tagged = [this](QMenu* menu, const QString& name, const QString& caption, QPushButton* button,
                             const QString& tag) {
    connect(MenuEntry(menu, name, caption), &QAction::triggered, this, [button, tag] { RunTagged(button, tag); });
  };
  QMenu* rateMap = PopupMenu(this, "mnuRateMap", "RateMap");
  tagged(rateMap, "mnuColor", "Color", analyses_->cmdRateMap, "Color");
  tagged(rateMap, "mnuGrayScale", "Grayscale", analyses_->cmdRateMap, "Gray");
  QMenu* autoCorr = PopupMenu(this, "mnu2DAutoCorr", "2DAutoCorr");
  tagged(autoCorr, "mnu2DACorrColor", "Color", analyses_->cmd2DAutoCorr, "Color");
  tagged(autoCorr, "mnu2DACorrGrayscale", "Grayscale", analyses_->cmd2DAutoCorr, "Gray");
  QMenu* average = PopupMenu(this, "mnuAvgWaveforms", "AvgWaveforms");
  tagged(average, "mnuShowAvgOnly", "Show Average Only", analyses_->cmdShowAvgWaveforms, "ShowAvgOnly");
  tagged(average, "mnuShowAllWaveforms", "Show All Waveforms", analyses_->cmdShowAvgWaveforms, "ShowAllWaveforms");
  tagged(average, "mnuShowColorAverages", "Show Color Averages", analyses_->cmdShowAvgWaveforms, "ShowAvgOnlyColor");
  QMenu* range = menuBar()->addMenu("Ran&ge");
  connect(range->addAction("Load Points"), &QAction::triggered, range_->cmdLoadPoints, &QPushButton::click);
  connect(range->addAction("Define Epochs"), &QAction::triggered, range_->cmdDefineEpochs, &QPushButton::click);
  range->addActions(loadPoints->actions());
  QMenu* view = menuBar()->addMenu("&View");
  view->addMenu(mnuscaleXaxis_)->setText("Scale of all axes");
  view->addMenu(axesScaleFile)->setText("Axis scales in a file");
  view->addMenu(rateMap)->setText("Rate map");
  view->addMenu(autoCorr)->setText("Spatial autocorrelation");
  // Both scale buttons open the X menu; the Y entry does the same.
  popups_ = {{axes_->cmdscaleXaxis, mnuscaleXaxis_}, {axes_->cmdscaleYaxis, mnuscaleXaxis_},
             {axes_->cmdRestoreAxes, axesScaleFile}, {files_->cmdReadCBFile, readCBFile},
             {range_->cmdLoadPoints, loadPoints},    {analyses_->cmdRateMap, rateMap},
             {analyses_->cmd2DAutoCorr, autoCorr},   {analyses_->cmdShowAvgWaveforms, average}};
  for (const auto& [button, menu] : popups_) button->installEventFilter(this);
}

void Main_Form::OnClick(QAbstractButton* button, void (Main_Form::*handler)()) {
  connect(button, &QAbstractButton::clicked, this, [this, handler] { Run([this, handler] { (this->*handler)(); }); });
}

void Main_Form::ConnectRange() {
  OnClick(range_->cmdLoadPoints, &Main_Form::cmdLoadPoints_Click);
  OnClick(range_->cmdDefineEpochs, &Main_Form::cmdDefineEpochs_Click);
  connect(range_->cboEpochs, &QComboBox::activated, this, [this] { Run([this] { cboEpochs_Click(); }); });
  doubleClicks_ = {{range_->txtStartTime, &Main_Form::txtStartTime_DblClick},
                   {range_->txtEndTime, &Main_Form::txtEndTime_DblClick},
                   {range_->txtStartEvent, &Main_Form::txtStartEvent_DblClick},
                   {range_->txtEndEvent, &Main_Form::txtEndEvent_DblClick}};
  for (const auto& [box, handler] : doubleClicks_) box->installEventFilter(this);
}

void Main_Form::ConnectAxes() {
  axes_->lstY_Axis->installEventFilter(this);
  axes_->lstY_Axis->viewport()->installEventFilter(this);
  connect(axes_->lstX_Axis, &QListWidget::currentRowChanged, this, &Main_Form::ShowPendingAxis);
  OnClick(axes_->cmdScaleUp, &Main_Form::cmdScaleUp_Click);
  OnClick(axes_->cmdScaleDown, &Main_Form::cmdScaleDown_Click);
  OnClick(axes_->cmdScaleDefaults, &Main_Form::cmdScaleDefaults_Click);
  OnClick(axes_->cmdscaleXaxis, &Main_Form::cmdscaleXaxis_Click);
  OnClick(axes_->cmdscaleYaxis, &Main_Form::cmdscaleYaxis_Click);
}

void Main_Form::ConnectDisplay() {
  OnClick(display_->cmdPointUp, &Main_Form::cmdPointUp_Click);
  OnClick(display_->cmdPointDown, &Main_Form::cmdPointDown_Click);
  OnClick(display_->cmdRandomX, &Main_Form::cmdRandomX_Click);
  OnClick(display_->cmdRandomY, &Main_Form::cmdRandomY_Click);
  OnClick(display_->cmdRedraw, &Main_Form::Redraw);
  OnClick(display_->cmdClear, &Main_Form::cmdClear_Click);
  OnClick(display_->chkWhiteBackground, &Main_Form::chkWhiteBackground_Click);
  for (QCheckBox* box : {display_->chkAxesOff, display_->chkDrawClustBounds, display_->chkDownsample})
    OnClick(box, &Main_Form::RedrawIfLoaded);
  connect(display_->optZoom, &QRadioButton::toggled, this, [this] { projections_->ShowMode(); });
  display_->cmdRedraw->installEventFilter(this);
}

void Main_Form::ConnectClusters() {
  connect(projections_.get(), &Projections::Hidden, this,
          [this] { status_->setText("Redraw shows the projection again."); });
  OnClick(clusters_->cmdToggleClusters, &Main_Form::cmdToggleClusters_Click);
  connect(projections_.get(), &Projections::BoundariesChanged, this, &Main_Form::RefreshClusters);
  const auto onItem = [this](QAbstractButton* item, int c, void (Main_Form::*handler)(int)) {
    connect(item, &QAbstractButton::clicked, this, [this, c, handler] { Run([=, this] { (this->*handler)(c); }); });
  };
  for (int c = 1; c <= kClusters; ++c) {
    onItem(clusters_->lblChooseCluster[c], c, &Main_Form::lblChooseCluster_Click);
    onItem(clusters_->lblNewCluster[c], c, &Main_Form::lblChooseCluster_Click);
    // The display boxes react to every change, including changes by the program.
    const auto onChange = [this, c](QCheckBox* box, void (Main_Form::*handler)(int)) {
      connect(box, &QCheckBox::toggled, this, [this, c, handler] { Run([=, this] { (this->*handler)(c); }); });
    };
    onChange(clusters_->chkDisableClusterDisplay[c], &Main_Form::chkDisableClusterDisplay_Click);
    onChange(clusters_->chkDisplayClusterAsZero[c], &Main_Form::chkDisplayClusterAsZero_Click);
    onItem(clusters_->chkDisplayOtherClustersAsZero[c], c, &Main_Form::chkDisplayOtherClustersAsZero_Click);
  }
}

void Main_Form::ConnectKeys() {
  for (QWidget* window : {static_cast<QWidget*>(this), static_cast<QWidget*>(projections_.get())}) {
    const auto onKey = [this, window](const QKeySequence& key, const std::function<void()>& handler) {
      connect(new QShortcut(key, window), &QShortcut::activated, this, [this, handler] { Run(handler); });
    };
    connect(new QShortcut(Qt::Key_Escape, window), &QShortcut::activated, this, &Main_Form::Escape);
    onKey(QKeySequence::Quit, [this] { cmdExit_Click(); });
    onKey(QKeySequence::Undo, [this] { cmdUndo_Click(); });
    onKey(Qt::Key_Plus, [this] { cmdScaleUp_Click(); });
    onKey(Qt::Key_Minus, [this] { cmdScaleDown_Click(); });
    for (int digit = 0; digit <= 9; ++digit) onKey(Qt::Key_0 + digit, [this, digit] { TypeClusterDigit(digit); });
  }
  connect(projections_.get(), &Projections::StepAxes, this,
          [this](int x, int y) { Run([=, this] { ShowAxes(session_.XParameter + x, session_.YParameter + y); }); });
}

}  // namespace pallomir
