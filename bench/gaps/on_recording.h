#pragma once

#include <QtWidgets>
#include <cstdio>
#include <iostream>
#include <string>

#include "gui/controls/dialogs.h"
#include "gui/controls/theme.h"
#include "support.h"
#include "tools/sample/make_sample.h"

namespace pallomir::bench {

/// Dialogs that open a sample recording by themselves; whatever else is asked is declined.
class SampleDialogs : public Dialogs {
 public:
  explicit SampleDialogs(const std::string& recording) : recording_(QString::fromStdString(recording)) {}

  void ShowMessage(QWidget*, const QString& text, const QString&) override {
    std::fprintf(stderr, "  message: %s\n", qPrintable(text));
  }
  QString OpenFile(QWidget*, const FileDialogOptions&) override { return recording_ + "/TT1/TT1.Ntt.parms"; }
  QString SaveFile(QWidget*, const FileDialogOptions&) override { return {}; }
  int Print(QWidget*, QPrinter&) override { return 0; }
  bool Confirm(QWidget*, const QString&) override { return true; }
  bool StartProgram(const QString&) override { return false; }
  bool ShowDocument(const QString&) override { return false; }

 protected:
  QString recording_;
};

/// Runs a Driver offscreen on the sample recording that the command line names, otherwise on a new one of
/// PALLOMIR_BENCH_SPIKES (a million) spikes. Returns the program's exit code.
template <class Driver>
int RunOnRecording(int argumentCount, char** arguments) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argumentCount, arguments);
  QApplication::setQuitOnLastWindowClosed(false);
  ApplyTheme(application);
  if (argumentCount > 1) return Driver(arguments[1]).Run() ? 0 : 1;
  const QTemporaryDir folder;
  const std::string recording = folder.filePath("recording").toStdString();
  ProgressBar progress(std::cerr, false);
  MakeSample({recording, static_cast<uint64_t>(Spikes()), 1}, progress);
  return Driver(recording).Run() ? 0 : 1;
}

}  // namespace pallomir::bench
