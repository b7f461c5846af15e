#pragma once

#include <QMenu>

#include "gui/controls/dropped_files.h"
#include "gui/forms/workbench.h"

namespace pallomir {

/// The menu File. A recording chosen here, or dropped on a window of the program, opens in a new start of it.
class FileMenu : public QMenu {
  Q_OBJECT

 public:
  FileMenu(Workbench& bench, QWidget* parent);

  /// The parameter file that the user chooses; empty if the user cancelled.
  static QString AskForRecording(Dialogs& dialogs, QWidget* parent);

  /// Remembers a parameter file, given with its folder, as the one opened last.
  void NoteOpened(const QString& parameterFile);

 private:
  void mnuOpen_Click();
  void ListRecent();
  void mnuClearList_Click();
  void TakeDropped(const QStringList& files);
  /// Opens a parameter file, or the only one in a folder.
  void Open(const QString& chosen);

  Workbench& bench_;
  QMenu* mnuOpenRecent_;
  DroppedFiles dropped_;
};

}  // namespace pallomir
