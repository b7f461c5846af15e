#pragma once

#include <QTimer>
#include <filesystem>
#include <set>
#include <string>

#include "gui/forms/workbench.h"
#include "pallomir/files/folder_lock.h"

namespace pallomir {

/// Writes boundaries files so that no cut is lost: what nobody has read is kept under another name, and the present cut
/// is saved from time to time. If another program is at work in the folder, only what the user orders is written.
class CutKeeper : public QObject {
  Q_OBJECT

 public:
  explicit CutKeeper(Workbench& bench);

  /// Locks the data directory for this program, or asks if another has locked it. False if the user declines.
  bool EnterFolder();
  void LeaveFolder();
  /// Whether another program has the folder.
  bool FolderTaken() const { return folder_.Taken(); }
  const std::string& FolderHolder() const { return folder_.Holder(); }

  /// Starts the autosave, and names the newest cut if it is not the one that Read CBFile would read.
  void Start();

  /// The cut at `path` was read in this run: it may be replaced.
  void NoteRead(const std::filesystem::path& path) { knownCuts_.insert(path); }
  /// Writes the boundaries, keeping a newer cut that this run has not read.
  void Write(const std::filesystem::path& path);
  /// Saves the cut as the autosave does when the program has to end.
  void SaveBeforeTheEnd();

 private:
  void Timer1_Timer();
  void Autosave();
  void TellNewestCut();

  Workbench& bench_;
  Session& session_;
  FolderLock folder_;
  QTimer* Timer1_;
  /// Seconds since midnight.
  float lastAutosave_ = 0;
  bool autosaveFailed_ = false;
  /// Boundaries files read or written in this run.
  std::set<std::filesystem::path> knownCuts_;
};

}  // namespace pallomir
