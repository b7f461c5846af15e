#include "gui/controls/dialogs.h"

#include <QPrintDialog>
#include <QPrinter>
#include <QtWidgets>

namespace pallomir {

namespace {

/// Converts "A (*.a)
/// *.a
/// All files (*.*)
/// *.*" to "A (*.a);;All files (*)".
QString DialogFilter(const QString& filter) {
  const QStringList parts = filter.split('|');
  QStringList entries;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    const QString name = parts[i].section(" (", 0, 0);
    entries << name + " (" + (parts[i + 1] == "*.*" ? QString("*") : parts[i + 1]) + ")";
  }
  return entries.join(";;");
}

/// Without a native file dialog, Qt's is too narrow for its columns.
void MakeRoom(QFileDialog& dialog) {
  dialog.resize(780, 460);
  if (auto* files = dialog.findChild<QTreeView*>("treeView"))
    files->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

}  // namespace

void DesktopDialogs::ShowMessage(QWidget* parent, const QString& text, const QString& title) {
  QMessageBox box(title == "ERROR" || title == "WARNING" ? QMessageBox::Warning : QMessageBox::Information,
                  title.isEmpty() ? QApplication::applicationDisplayName() : title, text, QMessageBox::Ok, parent);
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

QString DesktopDialogs::OpenFile(QWidget* parent, const FileDialogOptions& options) {
  if (!firstFile_.isEmpty()) return std::exchange(firstFile_, {});
  QFileDialog dialog(parent, options.Title, QDir::currentPath(), DialogFilter(options.Filter));
  dialog.setObjectName("CommonDialog1");
  MakeRoom(dialog);
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setDefaultSuffix(options.DefaultExtension);
  // If there is only one candidate, preselect it.
  const QStringList candidates = QDir().entryList({options.Filter.section('|', 1, 1)}, QDir::Files);
  if (!options.FileName.isEmpty())
    dialog.selectFile(options.FileName);
  else if (candidates.size() == 1)
    dialog.selectFile(candidates.first());
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

QString DesktopDialogs::SaveFile(QWidget* parent, const FileDialogOptions& options) {
  QFileDialog dialog(parent, options.Title, QDir::currentPath(), DialogFilter(options.Filter));
  dialog.setObjectName("dlgSaveFile");
  MakeRoom(dialog);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setOption(QFileDialog::DontConfirmOverwrite, !options.ConfirmReplacing);
  dialog.setDefaultSuffix(options.DefaultExtension);
  dialog.selectFile(options.FileName);
  // A name without an extension gets that of the chosen type.
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString& filter) {
    const QString ending = filter.section("(*.", 1, 1).section(')', 0, 0);
    if (!ending.isEmpty()) dialog.setDefaultSuffix(ending);
  });
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

int DesktopDialogs::Print(QWidget* parent, QPrinter& printer) {
  QPrintDialog dialog(&printer, parent);
  dialog.setObjectName("dlgPrint");
  return dialog.exec() == QDialog::Accepted ? printer.copyCount() : 0;
}

bool DesktopDialogs::Confirm(QWidget* parent, const QString& question) {
  QMessageBox box(QMessageBox::Warning, QApplication::applicationDisplayName(), question,
                  QMessageBox::Yes | QMessageBox::No, parent);
  box.setTextFormat(Qt::PlainText);  // it shows file names
  box.setDefaultButton(QMessageBox::No);
  return box.exec() == QMessageBox::Yes;
}

bool DesktopDialogs::StartProgram(const QString& parameterFile) {
  return QProcess::startDetached(QCoreApplication::applicationFilePath(), {parameterFile});
}

bool DesktopDialogs::ShowDocument(const QString& file) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(file));
}

}  // namespace pallomir
