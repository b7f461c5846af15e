#include "gui/controls/controls.h"
#include "gui/forms/analyses_panel.h"
#include "gui/forms/axes_panel.h"
#include "gui/forms/cluster_panel.h"
#include "gui/forms/display_panel.h"
#include "gui/forms/edit_panel.h"
#include "gui/forms/file_menu.h"
#include "gui/forms/files_panel.h"
#include "gui/forms/help_menu.h"
#include "gui/forms/main_form.h"
#include "gui/forms/picture_commands.h"
#include "gui/forms/range_panel.h"
#include "gui/forms/status_line.h"
#include "gui/live/live_windows.h"

namespace pallomir {

namespace {

constexpr char kPlace[] = "controls.place";

/// The screen may be smaller than the one on which the window was last.
void KeepWithin(QWidget& window, const QRect& screen) {
  if (QGuiApplication::screens().size() > 1) return;
  const QSize size = window.size().boundedTo(screen.size());
  const QPoint farthest(screen.right() + 1 - size.width(), screen.bottom() + 1 - size.height());
  window.setGeometry(
      {{std::clamp(window.x(), screen.left(), farthest.x()), std::clamp(window.y(), screen.top(), farthest.y())},
       size});
}

QFrame* Line() {
  auto* line = new QFrame;
  line->setFrameShape(QFrame::HLine);
  line->setFrameShadow(QFrame::Sunken);
  return line;
}

}  // namespace

void Main_Form::LayOut() {
  setObjectName("Main_Form");
  setWindowTitle("Cluster cutting controls");
  range_ = new RangePanel(bench_, projections_, this);
  axes_ = new AxesPanel(bench_, projections_, this);
  clusters_ = new ClusterPanel(bench_, projections_, this);
  display_ = new DisplayPanel(bench_, projections_, this);
  edit_ = new EditPanel(bench_, projections_, this);
  files_ = new FilesPanel(bench_, projections_, keeper_, this);
  analyses_ = new AnalysesPanel(bench_, projections_, this);
  auto* tabs = Named(new QTabWidget, "tabs", "Commands", "");
  tabs->addTab(edit_, "Ed&it cut");
  tabs->addTab(files_, "&Files");
  tabs->addTab(analyses_, "&Analyse");
  tabs->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
  txtMessages_ = Named(new QPlainTextEdit, "txtMessages", "Messages", "Messages, newest last");
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
}

void Main_Form::PlaceWindows() {
  // Where they were last; the first time side by side on the screen, with room for the window frames.
  constexpr int kFrame = 6, kTitle = 30, kHighest = 900, kNarrowest = 560, kNarrowestView = 400, kWidestView = 1100;
  const QRect screen = this->screen()->availableGeometry().adjusted(kFrame, kTitle, -kFrame, -kFrame);
  const int height = std::min(screen.height(), kHighest), bars = menuBar()->sizeHint().height() + statusBar()->height();
  const QSize least = controls_->minimumSizeHint();
  const int scrollBar = least.height() + bars > height ? style()->pixelMetric(QStyle::PM_ScrollBarExtent) : 0;
  centralWidget()->setMinimumWidth(least.width() + scrollBar);
  const int width = std::max(least.width() + scrollBar, kNarrowest);
  setGeometry(screen.left(), screen.top(), width, height);
  const int left = screen.left() + width + 2 * kFrame;
  projections_.setGeometry(left, screen.top(), std::clamp(screen.right() + 1 - left, kNarrowestView, kWidestView),
                           height);
  restoreGeometry(bench_.ThePreferences().Get<QByteArray>(kPlace));
  live_->Recall(bench_.ThePreferences());
  for (QWidget* window : std::initializer_list<QWidget*>{this, &projections_}) KeepWithin(*window, screen);
}

void Main_Form::RememberWindows() {
  bench_.ThePreferences().Set(kPlace, saveGeometry());
  live_->Remember(bench_.ThePreferences());
}

void Main_Form::MakeMenus() {
  fileMenu_ = new FileMenu(bench_, this);
  files_->AddTo(fileMenu_);
  analyses_->AddReportsTo(fileMenu_);
  fileMenu_->addSeparator();
  bench_.AddEntry(
      fileMenu_, "mnuExit", "E&xit", "Exit Pallomir", [this] { cmdExit_Click(); }, Qt::CTRL | Qt::Key_Q);
  menuBar()->addMenu(fileMenu_);

  range_->AddTo(menuBar()->addMenu("Ran&ge"));

  QMenu* view = menuBar()->addMenu("&View");
  live_->AddTo(view);
  view->addSeparator();
  display_->AddTo(view);
  axes_->AddTo(view);
  analyses_->AddTo(view);
  (new PictureCommands(bench_, projections_, this))->AddTo(view);

  menuBar()->addMenu(new HelpMenu(bench_, this));
}

}  // namespace pallomir
