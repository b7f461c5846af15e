#pragma once

#include <QString>
#include <utility>

class QPrinter;
class QWidget;

namespace pallomir {

/// The settings of a file dialog. `Filter` alternates captions and patterns: "Text (*.txt)|*.txt|All files|*.*".
struct FileDialogOptions {
  QString Title;
  QString Filter;
  QString FileName;
  QString DefaultExtension;
  /// Whether the dialog asks before an existing file is chosen for saving.
  bool ConfirmReplacing = true;
};

/// What the program asks of the desktop: modal dialogs, another start of itself, a viewer of documents. Tests provide
/// their own answers.
class Dialogs {
 public:
  virtual ~Dialogs() = default;
  virtual void ShowMessage(QWidget* parent, const QString& text, const QString& title) = 0;
  /// The chosen file; empty if the user cancelled.
  virtual QString OpenFile(QWidget* parent, const FileDialogOptions& options) = 0;
  virtual QString SaveFile(QWidget* parent, const FileDialogOptions& options) = 0;
  /// Lets the user configure a printer; returns the number of copies, 0 if the user cancelled.
  virtual int Print(QWidget* parent, QPrinter& printer) = 0;
  /// True if the user agrees.
  virtual bool Confirm(QWidget* parent, const QString& question) = 0;
  /// Starts the program once more, with a parameter file. False if it could not be started.
  virtual bool StartProgram(const QString& parameterFile) = 0;
  /// Opens a document in the program that the desktop has for it. False if it has none.
  virtual bool ShowDocument(const QString& file) = 0;
};

/// The desktop itself.
class DesktopDialogs : public Dialogs {
 public:
  /// `firstFile`, if not empty, answers the first request for a file to open.
  explicit DesktopDialogs(QString firstFile = {}) : firstFile_(std::move(firstFile)) {}
  void ShowMessage(QWidget* parent, const QString& text, const QString& title) override;
  QString OpenFile(QWidget* parent, const FileDialogOptions& options) override;
  QString SaveFile(QWidget* parent, const FileDialogOptions& options) override;
  int Print(QWidget* parent, QPrinter& printer) override;
  bool Confirm(QWidget* parent, const QString& question) override;
  bool StartProgram(const QString& parameterFile) override;
  bool ShowDocument(const QString& file) override;

 private:
  QString firstFile_;
};

}  // namespace pallomir
