#include "gui/live/live_windows.h"

#include <QtWidgets>
#include <algorithm>

#include "gui/live/cell_window.h"
#include "gui/live/clusters_window.h"
#include "gui/live/correlograms_window.h"
#include "gui/live/overlay_window.h"
#include "gui/live/pairs_window.h"

namespace pallomir {

namespace {

constexpr char kPlace[] = "projections.place", kLayout[] = "projections.layout";

}  // namespace

LiveWindows::LiveWindows(const Session& session, Dialogs& dialogs, QMainWindow* host,
                         std::function<LiveSettings()> settings, std::function<bool()> busy)
    : QObject(host),
      session_(session),
      host_(host),
      settings_(std::move(settings)),
      busy_(std::move(busy)),
      source_(session) {
  due_.setSingleShot(true);
  due_.setInterval(0);
  connect(&due_, &QTimer::timeout, this, &LiveWindows::ShowNow);
  turn_.setSingleShot(true);
  turn_.setInterval(0);
  connect(&turn_, &QTimer::timeout, this, &LiveWindows::ShowNext);
  connect(&source_, &LiveSource::Arrived, this, [this] {
    again_ = turn_.isActive();
    if (!again_) ShowAll();
  });
  Add(new PairsWindow(dialogs), Qt::RightDockWidgetArea, Qt::Key_F3);
  Add(new CellWindow(dialogs), Qt::RightDockWidgetArea, Qt::Key_F4);
  Add(new ClustersWindow(dialogs), Qt::BottomDockWidgetArea, Qt::Key_F5);
  Add(new CorrelogramsWindow(dialogs), Qt::BottomDockWidgetArea, Qt::Key_F6);
  Add(new OverlayWindow(dialogs), Qt::BottomDockWidgetArea, Qt::Key_F7);
}

void LiveWindows::Add(LiveWindow* window, Qt::DockWidgetArea area, const QKeySequence& key) {
  const auto sameSide = std::find_if(windows_.begin(), windows_.end(),
                                     [&](LiveWindow* other) { return host_->dockWidgetArea(other) == area; });
  host_->addDockWidget(area, window);
  if (sameSide != windows_.end()) host_->tabifyDockWidget(*sameSide, window);
  window->hide();
  windows_.push_back(window);
  auto* entry = new QAction(window->windowTitle(), this);
  entry->setToolTip(window->accessibleDescription());
  entry->setCheckable(true);
  entry->setShortcut(key);
  entry->setShortcutContext(Qt::ApplicationShortcut);
  host_->addAction(entry);
  entries_.push_back(entry);
  connect(window->toggleViewAction(), &QAction::toggled, entry, &QAction::setChecked);
  connect(entry, &QAction::triggered, window, [this, window, entry] {
    // A window behind another tab is brought to the front first.
    const bool inFront = window->isVisible() && !window->visibleRegion().isEmpty();
    window->setVisible(!inFront);
    entry->setChecked(!inFront);
    if (inFront) return host_->centralWidget()->setFocus();
    window->raise();
    window->setFocus();
  });
  connect(window, &LiveWindow::Changed, this, &LiveWindows::Refresh);
  connect(window, &LiveWindow::ClusterChosen, this, &LiveWindows::ClusterChosen);
  connect(window, &LiveWindow::ProjectionChosen, this, &LiveWindows::ProjectionChosen);
}

void LiveWindows::AddTo(QMenu* view) const {
  view->addActions(entries_);
}

void LiveWindows::Remember(Preferences& preferences) const {
  for (const LiveWindow* window : windows_) window->Remember(preferences);
  preferences.Set(kPlace, host_->saveGeometry());
  preferences.Set(kLayout, host_->saveState());
}

void LiveWindows::Recall(const Preferences& preferences) {
  for (LiveWindow* window : windows_) window->Recall(preferences);
  host_->restoreGeometry(preferences.Get<QByteArray>(kPlace));
  host_->restoreState(preferences.Get<QByteArray>(kLayout));
}

void LiveWindows::ShowNow() {
  // The command that is running ends with a Refresh() of its own.
  if (busy_()) return;
  LiveWants wants;
  for (const LiveWindow* window : windows_)
    if (window->isVisible()) window->AddWants(session_, wants);
  source_.Follow(settings_().Measured, wants);
  ShowAll();
}

void LiveWindows::ShowAll() {
  next_ = 0;
  again_ = false;
  turn_.start();
}

void LiveWindows::ShowNext() {
  if (busy_()) return;
  const auto hidden = [this] { return next_ < windows_.size() && !windows_[next_]->isVisible(); };
  while (hidden()) ++next_;
  if (next_ < windows_.size()) Show(*windows_[next_++]);
  while (hidden()) ++next_;
  if (next_ < windows_.size()) return turn_.start();
  if (again_) ShowAll();
  emit Shown();
}

void LiveWindows::Show(LiveWindow& window) {
  const LiveSettings settings = settings_();
  window.ShowState({session_, source_.Cut(), settings.Measured.Displayed, settings.Density});
}

bool LiveWindows::Finished() const {
  return !due_.isActive() && !turn_.isActive() &&
         std::all_of(windows_.begin(), windows_.end(),
                     [](const LiveWindow* window) { return !window->isVisible() || window->Finished(); });
}

void LiveWindows::Finish() {
  due_.stop();
  ShowNow();
  source_.Finish();
  turn_.stop();
  for (LiveWindow* window : windows_) {
    if (window->isVisible()) Show(*window);
    window->Finish();
  }
  emit Shown();
}

}  // namespace pallomir
