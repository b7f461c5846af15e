#pragma once

#include <QDialog>
#include <QStringList>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "gui/controls/dialogs.h"
#include "gui/forms/epoch_rows.h"
#include "pallomir/session/world.h"
#include "pallomir/timesel/epochs.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QTextCursor;

namespace pallomir {

/// "Time Epochs": defines up to thirty named parts of the recording, shows the events file to look up their times, and
/// finds their spike records. It keeps nothing when closed: it always starts from the items of cboEpochs.
class TimeEpochs : public QDialog, public World {
  Q_OBJECT

 public:
  /// Throws CommandError for more than thirty items.
  TimeEpochs(Session& session, Dialogs& dialogs, const std::vector<std::string>& items, QWidget* parent);

  // World
  void ShowMessage(std::string_view text, std::string_view title) override;
  void AppendMessage(std::string_view line) override;
  void ShowProgress(double share) override;
  void HideProgress() override;
  bool PumpEvents() override;

  /// Stops a running search or listing; false if none is running.
  bool StopWork();

 signals:
  /// The user is done: the new items for cboEpochs.
  void Done(const QStringList& items);
  /// A search or listing has ended.
  void Idle();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  /// Esc and the close box: stops a search, otherwise asks before discarding changes.
  void reject() override;

 private:
  void LayOut();
  void Connect();

  // The events file (time_epochs_form_events.cpp)
  void cmdLoadEventsFile_Click();
  void ShowListing(std::string_view listing);
  void cmdFillFromEvents_Click();
  void TakeSelection(QLineEdit* box);
  /// Selects the stamp in the line of the cursor.
  void SelectStamp(QTextCursor cursor);

  /// Runs a long operation with all controls but Stop and Esc disabled; `next` gets the focus afterwards.
  void Work(QWidget* next, const std::function<void()>& work);
  void cmdFindEventNumbers_Click();
  void cmdSave_Click();
  void cmdClear_Click();
  void cmdCancel_Click();
  EpochTable Typed() const;
  /// Puts into the boxes what differs from it.
  void Show(const EpochTable& table);
  void ShowRecords();
  void ShowHint();
  void ShowReport(bool shown);

  Session& session_;
  Dialogs& dialogs_;
  const std::vector<std::string> before_;
  /// The events that the text box lists.
  std::string listed_;
  EpochControls<QLineEdit> txtEpochLabel_, txtStart_, txtEnd_;
  EpochControls<QLabel> lblRecords_;
  EpochRows* rows_;
  QLabel* lblEventsFile_;
  QPlainTextEdit* txtEventsFile_;
  QCheckBox* chkFilter_;
  QWidget* commands_;
  QWidget* report_;
  QPlainTextEdit* txtEventIDProgress_;
  QProgressBar* progress_;
  QLabel* hint_;
  bool busy_ = false;
  bool stop_ = false;
};

}  // namespace pallomir
