#include "gui/forms/main_form.h"

#include <QtWidgets>

#include "gui/controls/chosen_path.h"
#include "gui/controls/run_command.h"
#include "gui/controls/toolkit_values.h"
#include "gui/forms/analyses_panel.h"
#include "gui/forms/axes_panel.h"
#include "gui/forms/cluster_panel.h"
#include "gui/forms/edit_panel.h"
#include "gui/forms/file_menu.h"
#include "gui/forms/files_panel.h"
#include "gui/forms/range_panel.h"
#include "gui/live/live_windows.h"
#include "pallomir/files/error.h"
#include "pallomir/files/platform.h"
#include "pallomir/projection/colours.h"
#include "pallomir/session/point_reader.h"
#include "pallomir/session/start_up.h"

namespace pallomir {

Main_Form::Main_Form(Session& session, Dialogs& dialogs, Preferences preferences)
    : session_(session), bench_(session, dialogs, std::move(preferences), this), keeper_(bench_), projections_(bench_) {
  bench_.AddWindow(&projections_);
  LayOut();
  live_ = new LiveWindows(
      session_, bench_.TheDialogs(), &projections_,
      [this] {
        const auto positions = PathIn(session_.DataDirectory, "..\\" + bench_.Names.PosFile);
        return LiveSettings{{positions, projections_.RecordRanges()}, projections_.Options().Density};
      },
      [this] { return bench_.Working() || projections_.Drawing(); });
  MakeMenus();
  Connect();
  ConnectLiveWindows();
}

Main_Form::~Main_Form() = default;

void Main_Form::Connect() {
  connect(&bench_, &Workbench::Said, this, [this](const QString& text) { status_->setText(text); });
  connect(&bench_, &Workbench::MessageAppended, this, [this](std::string_view line) {
    txtMessages_->appendPlainText(FromText(line));
    txtMessages_->moveCursor(QTextCursor::End);
  });
  connect(&bench_, &Workbench::MustEnd, this, [this] {
    keeper_.SaveBeforeTheEnd();
    EndProgram();
  });
  connect(&bench_, &Workbench::CloseAsked, this, &Main_Form::close);
  connect(&projections_, &Projections::BoundariesChanged, &bench_, &Workbench::CutChanged);
  connect(&projections_, &Projections::Hidden, this, [this] { bench_.Say("Redraw shows the projection again."); });
  connect(axes_, &AxesPanel::ProjectionChosen, edit_, &EditPanel::RestartOverlap);
  connect(files_, &FilesPanel::Exit, this, &Main_Form::cmdExit_Click);
  for (QWidget* window : std::initializer_list<QWidget*>{this, &projections_})
    connect(new QShortcut(Qt::Key_Escape, window), &QShortcut::activated, this, &Main_Form::Escape);
}

void Main_Form::ConnectLiveWindows() {
  connect(&bench_, &Workbench::Settled, live_, &LiveWindows::Refresh);
  connect(&bench_, &Workbench::CutChanged, live_, &LiveWindows::Refresh);
  connect(&projections_, &Projections::Redrawn, live_, &LiveWindows::Refresh);
  bench_.On(live_, &LiveWindows::ClusterChosen, [this](int c) { clusters_->Choose(c); });
  bench_.On(live_, &LiveWindows::ProjectionChosen, [this](int x, int y) { axes_->ShowPair({x, y}); });
}

bool Main_Form::Form_Load() {
  if (!ChooseParameterFile()) return false;
  files_->ReadDefaultsFiles();
  range_->ShowWholeRecording();
  try {
    CheckVideoSampling(session_);
  } catch (const ProgramEnd& end) {
    bench_.AppendMessage(std::string("Loading will fail: ") + end.what() + " (" + PathText(session_.DataDirectory) +
                         "\\..\\VideoSampling must hold 30 or 60)");
  }
  bench_.NameTetrode(this);
  bench_.NameTetrode(&projections_);
  PlaceWindows();
  projections_.show();
  InitialiseSession(session_);
  BuildColourTable(session_);
  axes_->ShowParameters();
  emit bench_.CutChanged();
  keeper_.Start();
  range_->FocusLoading();
  return true;
}

bool Main_Form::ChooseParameterFile() {
  for (;;) {
    const QString chosen = FileMenu::AskForRecording(bench_.TheDialogs(), this);
    const QString whole = QFileInfo(chosen).absoluteFilePath();
    // The run's files are in the folder of the chosen file.
    const std::filesystem::path path = PathOf(chosen);
    std::error_code error;
    if (!chosen.isEmpty()) std::filesystem::current_path(path.parent_path(), error);
    session_.DataDirectory = std::filesystem::current_path(error);
    range_->ShowFolder();
    try {
      UnderErrorTitle([&] { OpenParameterFile(session_, path); }, ErrorKind::Foreign);
      if (keeper_.EnterFolder()) {
        fileMenu_->NoteOpened(whole);
        return true;
      }
    } catch (const ProgramEnd& end) {
      bench_.ShowMessage(end.what(), "ERROR");
      return false;
    } catch (const CommandError& refused) {
      ShowError(bench_, refused);
    }
  }
}

void Main_Form::Escape() {
  if (bench_.Working())
    bench_.Stop();
  else if (projections_.SlowRedrawRunning())
    projections_.StopSlowRedraw();
  else if (projections_.TakeBackDrag() || analyses_->DisarmCentre())
    return;
  else if (projections_.PolygonOpen())
    bench_.Run([this] { edit_->TakeBackPolygon(); });
  else
    projections_.HideCross();
}

void Main_Form::cmdExit_Click() {
  if (CloseForms() && SaveOnExit()) EndProgram();
}

bool Main_Form::CloseForms() {
  TimeEpochs* const epochs = range_->EpochsForm();
  if (epochs && epochs->StopWork()) {
    // End the search first, then the program.
    connect(epochs, &TimeEpochs::Idle, this, &Main_Form::close,
            static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection | Qt::UniqueConnection));
    return false;
  }
  for (QDialog* form : std::initializer_list<QDialog*>{epochs, analyses_->NotesForm()})
    if (form && form->isVisible() && !form->close()) return false;
  return true;
}

bool Main_Form::SaveOnExit() {
  if (keeper_.FolderTaken())
    return std::count(session_.ClusterDefined.begin(), session_.ClusterDefined.end(), true) == 0 ||
           bench_.Agrees(FromText("The folder belongs to another program (" + keeper_.FolderHolder() +
                                  "), so no exit copy of your cut is written. Write CBFile saves it under a "
                                  "name of its own.\n\nExit now?"));
  try {
    files_->WriteExitCopy();
    axes_->mnuWriteAxesScaleFile_Click();
  } catch (const Interrupted&) {
    return bench_.Agrees("Not everything was saved.\n\nExit anyway?");
  } catch (const std::exception& error) {
    // Do not lose anything without the user's consent.
    return bench_.Agrees(QString::fromStdString(SentenceOf(error)) + "\n\nExit anyway?");
  }
  return true;
}

void Main_Form::EndProgram() {
  closing_ = true;
  close();
}

void Main_Form::closeEvent(QCloseEvent* event) {
  if (bench_.Working()) {
    // End the operation first, then the program.
    bench_.StopAndClose();
    event->ignore();
    return;
  }
  // The window's close box does the same as Exit.
  if (!closing_ && !(CloseForms() && SaveOnExit())) {
    event->ignore();
    return;
  }
  closing_ = true;
  RememberWindows();
  keeper_.LeaveFolder();
  projections_.Supersede();
  projections_.StopSlowRedraw();
  projections_.hide();
  event->accept();
  // Not quit(), which other windows could still refuse.
  if (QThread::currentThread()->loopLevel() > 0) QCoreApplication::exit();
}

}  // namespace pallomir
