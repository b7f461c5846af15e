#pragma once

#include <QDockWidget>
#include <QLabel>
#include <QMenu>
#include <QVBoxLayout>
#include <optional>

#include "gui/controls/dialogs.h"
#include "gui/controls/preferences.h"
#include "gui/controls/save_image.h"
#include "pallomir/live/live_cut.h"
#include "pallomir/results/cut_points.h"
#include "pallomir/session/session.h"

namespace pallomir {

/// What live windows show.
struct LiveState {
  const Session& Program;
  const LiveCut& Cut;
  /// The records of the chosen epochs, if not all are displayed.
  std::optional<RecordRanges> Displayed;
  /// Points are shaded by their density.
  bool Density = false;
};

/// A window that shows the cut while it is made: docked beside the projection, or free. It is told of every change
/// while it is visible, and nothing is computed for it otherwise.
class LiveWindow : public QDockWidget {
  Q_OBJECT

 public:
  /// `name` is the object name, `what` a sentence on what the window shows.
  LiveWindow(const QString& name, const QString& title, const QString& what, Dialogs& dialogs);

  /// Adds what this window shows to what is computed.
  virtual void AddWants(const Session& session, LiveWants& wants) const;
  /// The session or what is known of the cut may have changed.
  virtual void ShowState(const LiveState& state) = 0;
  /// Draws at once what would be drawn bit by bit.
  virtual void Finish();
  virtual bool Finished() const;
  /// What this window keeps from one start to the next, besides its place.
  virtual void Remember(Preferences& preferences) const;
  virtual void Recall(const Preferences& preferences);
  /// The content, without the window around it, for pictures.
  virtual QWidget* Content() const { return widget(); }

 signals:
  /// The user chose a cluster here.
  void ClusterChosen(int c);
  /// The user chose two parameters to be displayed.
  void ProjectionChosen(int x, int y);
  /// The window was opened or closed, or shows something else now.
  void Changed();

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;
  /// The menu of a right click at a position on the screen: the window's own entries, and its picture.
  void OpenMenu(QPoint at);
  /// Adds entries for what is at a position on the screen.
  virtual void AddEntries(QMenu& menu, QPoint at);
  /// Asks for a file, and saves a picture in it. `name` is without its ending.
  void SaveAs(const DrawnPicture& picture, const QString& name);
  /// Makes the content: a column for the window's parts.
  QVBoxLayout* MakeContent();
  /// Adds a line of text whose length does not change the window's width, and with it that of the projection.
  static void AddText(QVBoxLayout* column, QLabel* text);

  Dialogs& dialogs_;

 private:
  DrawnPicture WholePicture() const;
};

}  // namespace pallomir
