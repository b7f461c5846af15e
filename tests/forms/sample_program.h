#pragma once

#include <memory>
#include <random>
#include <sstream>

#include "gui/live/live_windows.h"
#include "program.h"
#include "tools/sample/make_sample.h"

namespace pallomir {

/// A sample recording, opened and loaded.
struct SampleProgram {
  QTemporaryDir Folder;
  ScriptedDialogs Answers;
  Session Shared;
  std::unique_ptr<Main_Form> Form;

  explicit SampleProgram(uint64_t spikes = 3000) {
    std::ostringstream said;
    ProgressBar progress(said, false);
    const QString recording = Folder.filePath("sample");
    MakeSample({recording.toStdString(), spikes, 1}, progress);
    Answers.FilesToOpen = {recording + "/TT1/TT1.Ntt.parms"};
    Form = std::make_unique<Main_Form>(Shared, Answers);
    Form->Form_Load();
    Form->show();
  }
  void Load() const {
    Click("cmdLoadPoints");
    QApplication::processEvents();
  }

  QMainWindow* View() const {
    for (QWidget* window : QApplication::topLevelWidgets())
      if (window->objectName() == "Projections" && window->isVisible()) return qobject_cast<QMainWindow*>(window);
    return nullptr;
  }
  LiveWindows* Live() const { return View()->findChild<LiveWindows*>(); }
  template <class Window>
  Window* Open() const {
    auto* window = View()->findChild<Window*>();
    window->show();
    QApplication::processEvents();
    Live()->Finish();
    return window;
  }
  void OpenAll() const {
    for (LiveWindow* window : Live()->Windows()) {
      window->setFloating(true);
      window->resize(520, 480);
      window->show();
    }
    QApplication::processEvents();
  }
  void Click(const QString& name) const { Box<QAbstractButton>(Form.get(), name)->click(); }
  void ChooseCluster(int c) const {
    auto* label = Box<QAbstractButton>(Form.get(), QString("lblChooseCluster(%1)").arg(c));
    (label->isHidden() ? Box<QAbstractButton>(Form.get(), QString("lblNewCluster(%1)").arg(c)) : label)->click();
  }
};

}  // namespace pallomir
