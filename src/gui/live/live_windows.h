#pragma once

#include <QMainWindow>
#include <QTimer>
#include <functional>
#include <vector>

#include "gui/controls/dialogs.h"
#include "gui/live/live_source.h"
#include "gui/live/live_window.h"

class QMenu;

namespace pallomir {

/// What the windows show besides the session.
struct LiveSettings {
  LiveContext Measured;
  /// Points are shaded by their density.
  bool Density = false;
};

/// All windows that show the cut while it is made, docked beside a host window. They follow the session when Refresh()
/// says that it may have changed, once the program is idle, so that the projection is always drawn first.
class LiveWindows : public QObject {
  Q_OBJECT

 public:
  /// `settings` says what is shown besides the session, and `busy` whether a command is running.
  LiveWindows(const Session& session, Dialogs& dialogs, QMainWindow* host, std::function<LiveSettings()> settings,
              std::function<bool()> busy);

  /// Adds an entry for each window.
  void AddTo(QMenu* view) const;

  /// Where the windows are, which are open, and what they show, from one start to the next.
  void Remember(Preferences& preferences) const;
  void Recall(const Preferences& preferences);

  /// Something that the windows show may have changed.
  void Refresh() { due_.start(); }
  /// Brings all open windows up to date at once, and waits for what is computed for them.
  void Finish();

  const std::vector<LiveWindow*>& Windows() const { return windows_; }
  /// Whether all open windows show Cut().
  bool Finished() const;
  /// What is known of the cut by now.
  const LiveCut& Cut() const { return source_.Cut(); }

 signals:
  /// All open windows were given Cut(); some may still be drawing it.
  void Shown();
  void ClusterChosen(int c);
  void ProjectionChosen(int x, int y);

 private:
  void Add(LiveWindow* window, Qt::DockWidgetArea area, const QKeySequence& key);
  void ShowNow();
  // One window at a time, so that none makes the user wait for the others.
  void ShowAll();
  void ShowNext();
  void Show(LiveWindow& window);

  const Session& session_;
  QMainWindow* host_;
  std::function<LiveSettings()> settings_;
  std::function<bool()> busy_;
  LiveSource source_;
  std::vector<LiveWindow*> windows_;
  QList<QAction*> entries_;
  QTimer due_;
  QTimer turn_;
  size_t next_ = 0;     // the window whose turn it is
  bool again_ = false;  // results have arrived that windows shown before have not seen
};

}  // namespace pallomir
