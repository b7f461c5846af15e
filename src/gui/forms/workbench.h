#pragma once

#include <QAbstractButton>
#include <QKeySequence>
#include <QObject>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "gui/controls/dialogs.h"
#include "gui/controls/preferences.h"
#include "gui/forms/input_held_back.h"
#include "pallomir/files/progress.h"
#include "pallomir/output/cluster_files.h"
#include "pallomir/session/defaults_file.h"
#include "pallomir/session/session.h"
#include "pallomir/session/world.h"

class QAction;
class QLineEdit;
class QMenu;

namespace pallomir {

/// The program as its panels see it: what they work on, and what runs a command and says how it ended. At most one
/// command runs at a time; what arrives meanwhile is refused.
class Workbench : public QObject, public World {
  Q_OBJECT

 public:
  /// `window` is the main window, the parent of message boxes.
  Workbench(Session& session, Dialogs& dialogs, Preferences preferences, QWidget* window);

  Session& TheSession() { return session_; }
  Dialogs& TheDialogs() { return dialogs_; }
  Preferences& ThePreferences() { return preferences_; }

  // Texts of the panels' boxes that other panels use; KeepText() and the panel that has the box keep them up to date.
  Defaults Names;
  std::string StartTime, EndTime;
  ClusterFileTexts ClusterTexts() const { return {Names.ClustFile, StartTime, EndTime}; }
  /// From now on `text` is what `box` holds, and the box takes it from there when NamesRead() says so.
  void KeepText(QLineEdit* box, std::string& text);
  /// Whether both times of the range, which cluster files and analyses use, are numbers.
  bool TimesTyped() const;
  /// Whether these times include all loaded points.
  bool TimesSpanLoaded() const;

  // Running commands

  /// Runs an event handler as a command; if it fails, shows the error and what to do next.
  void Run(const std::function<void()>& handler);

  /// Runs `handler` as a command whenever `sender` emits `signal`; it may take the signal's values.
  template <class Sender, class... Values, class Handler>
  void On(const QObject* sender, void (Sender::*signal)(Values...), Handler handler) {
    connect(static_cast<const Sender*>(sender), signal, this, [this, handler](Values... values) {
      if constexpr (std::is_invocable_v<const Handler&, Values...>)
        Run([&] { handler(values...); });
      else
        Run([&] { handler(); });
    });
  }
  template <class Panel>
  void OnClick(const QAbstractButton* button, Panel* panel, void (Panel::*handler)()) {
    On(button, &QAbstractButton::clicked, std::bind_front(handler, panel));
  }

  /// Runs `handler` as a command by a key in either window.
  void OnKey(const QKeySequence& key, const std::function<void()>& handler);
  /// Adds an entry to a menu, which runs `handler` as a command; its key works in either window.
  QAction* AddEntry(QMenu* menu, const QString& name, const QString& caption, const QString& toolTip,
                    const std::function<void()>& handler, const QKeySequence& key = {});
  /// Adds a window in which the keys work; before the first OnKey() or AddEntry().
  void AddWindow(QWidget* window) { windows_.push_back(window); }

  /// Runs a long operation: other input is held back meanwhile; Esc and closing the program stop it.
  void Work(const std::function<void()>& work);
  /// A long change of the cut: if stopped, the cut is restored.
  void ChangeCut(const std::function<void(const Progress&)>& change);
  bool Working() const { return working_; }
  void Stop() { stopWork_ = working_; }
  /// Stops the running operation and asks for the program's end then (CloseAsked).
  void StopAndClose() { stopWork_ = closeAfterWork_ = working_; }

  // What a command says

  /// Shows a text in the status line, or clears it.
  void Say(const QString& text) { emit Said(text); }
  /// What to do next if the running command fails.
  void AdviseOnFailure(const QString& advice) { advice_ = advice; }
  bool HasAdvice() const { return !advice_.isEmpty(); }
  /// The state that the running command leaves if it is stopped.
  void SayIfStopped(const QString& state) { stopped_ = state; }
  /// What most commands still need before they can run; empty if nothing.
  QString NextStep() const;
  /// Whether a cluster is chosen; says so if none is.
  bool ClusterChosen();

  /// Asks the user; true if the answer is yes.
  bool Agrees(const QString& question) { return dialogs_.Confirm(window_, question); }
  /// Asks, and ends the command if the answer is no.
  void Ask(const QString& question);
  /// Asks before write-protected files are replaced; ends the command if the user declines.
  void AskBeforeReplacing(const std::vector<std::filesystem::path>& paths);

  /// Adds the tetrode's name to a window's title.
  void NameTetrode(QWidget* window) const;

  // World
  void ShowMessage(std::string_view text, std::string_view title) override;
  void AppendMessage(std::string_view line) override { emit MessageAppended(line); }
  void ShowProgress(double share) override { emit ProgressShown(share); }
  void HideProgress() override { emit ProgressHidden(); }
  bool PumpEvents() override;
  void StopHeard() override;

 signals:
  void Said(const QString& text);
  void MessageAppended(std::string_view line);
  void ProgressShown(double share);
  void ProgressHidden();
  /// The boundaries, or which clusters exist, changed.
  void CutChanged();
  /// Another cluster was chosen.
  void ClusterChanged();
  /// The clusters have other colours.
  void ColoursChanged();
  /// A command has ended; it may have changed the session.
  void Settled();
  /// A Defaults file was read into Names: the boxes take their texts from there.
  void NamesRead();
  /// A command failed in a way that the program cannot continue after.
  void MustEnd();
  /// The user closed the program during an operation, which has ended now.
  void CloseAsked();

 private:
  void SayAtWork() { Say("Pallomir is at work; Esc stops it."); }

  Session& session_;
  Dialogs& dialogs_;
  Preferences preferences_;
  QWidget* window_;
  std::vector<QWidget*> windows_;
  QString advice_;
  QString stopped_;
  bool working_ = false;
  bool stopWork_ = false;
  bool closeAfterWork_ = false;
  InputHeldBack atWork_{[this] { Stop(); }, [this] { SayAtWork(); }};
};

}  // namespace pallomir
