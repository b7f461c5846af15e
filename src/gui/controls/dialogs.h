#pragma once

#include <QString>

class QPrinter;
class QWidget;

namespace pallomir {

/// What a file dialog is opened with. `Filter` is in the system's own notation: "Text (*.txt)|*.txt|All files|*.*".
struct FileDialogOptions {
  QString Title;
  QString Filter;
  QString FileName;
  QString DefaultExtension;
  /// Whether the dialog itself asks before a file that is there is chosen for saving.
  bool ConfirmReplacing = true;
};

/// The windows that stop everything until they are answered. Tests hand in their own answers.
class Dialogs {
 public:
  virtual ~Dialogs() = default;
  virtual void ShowMessage(QWidget* parent, const QString& text, const QString& title) = 0;
  /// The chosen file, or an empty text when the user cancelled.
  virtual QString OpenFile(QWidget* parent, const FileDialogOptions& options) = 0;
  virtual QString SaveFile(QWidget* parent, const FileDialogOptions& options) = 0;
  /// Lets the user set a printer up, and returns how many copies are wanted: 0 when the user cancelled.
  virtual int Print(QWidget* parent, QPrinter& printer) = 0;
  /// True when the user agrees.
  virtual bool Confirm(QWidget* parent, const QString& question) = 0;
};

/// The desktop's own dialogs.
class DesktopDialogs : public Dialogs {
 public:
  /// `firstFile`, if any, answers the first question for a file to open.
  explicit DesktopDialogs(const QString& firstFile = {}) : firstFile_(firstFile) {}
  void ShowMessage(QWidget* parent, const QString& text, const QString& title) override;
  QString OpenFile(QWidget* parent, const FileDialogOptions& options) override;
  QString SaveFile(QWidget* parent, const FileDialogOptions& options) override;
  int Print(QWidget* parent, QPrinter& printer) override;
  bool Confirm(QWidget* parent, const QString& question) override;

 private:
  QString firstFile_;
};

}  // namespace pallomir
