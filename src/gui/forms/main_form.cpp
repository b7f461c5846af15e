#include "gui/forms/main_form.h"

#include <QtWidgets>

#include "gui/controls/chosen_path.h"
#include "gui/controls/run_command.h"
#include "gui/controls/titles.h"
#include "gui/controls/toolkit_values.h"
#include "gui/forms/analyses_panel.h"
#include "gui/forms/axes_panel.h"
#include "gui/forms/cl_note_form.h"
#include "gui/forms/display_panel.h"
#include "gui/forms/load_multiple_epochs_form.h"
#include "gui/forms/range_panel.h"
#include "gui/forms/time_epochs_form.h"
#include "gui/viewers/desktop_components.h"
#include "gui/viewers/report_source.h"
#include "pallomir/clusters/change_cut.h"
#include "pallomir/files/error.h"
#include "pallomir/files/platform.h"
#include "pallomir/files/save_file.h"
#include "pallomir/projection/colours.h"
#include "pallomir/session/point_reader.h"
#include "pallomir/session/start_up.h"

namespace pallomir {

Main_Form::Main_Form(Session& session, Dialogs& dialogs) : session_(session), dialogs_(dialogs) {
  projections_ = std::make_unique<Projections>(
      session_, *this, [this] { return Options(); },
      [this](const auto& change) { return ChangeCutOnProjection(change); });
  components_ = std::make_unique<DesktopComponents>(session_, *this, dialogs_, this, [this] {
    return std::make_unique<ReportSource>(session_, *this, dialogs_, this, session_.CurrentCluster);
  });
  LayOut();
  ConnectRange();
  ConnectAxes();
  ConnectDisplay();
  ConnectClusters();
  ConnectEdit();
  ConnectFiles();
  ConnectAnalyses();
  ConnectKeys();
}

Main_Form::~Main_Form() = default;

bool Main_Form::Form_Load() {
  if (!ChooseParameterFile()) return false;
  ReadDefaultsFiles();
  range_->txtStartEvent->setText("0");
  range_->txtEndEvent->setText(QString::number(session_.File.RecordCount - 1));
  if (session_.File.RecordCount > 0) {
    Run([this] { txtStartEvent_DblClick(); });
    Run([this] { txtEndEvent_DblClick(); });
  } else {
    AppendMessage("This recording holds no spikes.");
  }
  try {
    CheckVideoSampling(session_);
  } catch (const ProgramEnd& end) {
    AppendMessage(std::string("Loading will fail: ") + end.what() + " (" + session_.DataDirectory +
                  "\\..\\VideoSampling must hold 30 or 60)");
  }
  NameTetrode(this);
  NameTetrode(projections_.get());
  PlaceWindows();
  projections_->show();
  InitialiseSession(session_);
  BuildColourTable(session_);
  axes_->FillLists(session_.ParameterNames);
  axes_->lstX_Axis->setCurrentRow(session_.XParameter);
  axes_->lstY_Axis->setCurrentRow(session_.YParameter);
  RefreshClusters();
  StartAutosave();
  range_->cmdLoadPoints->setFocus();
  return true;
}

void Main_Form::NameTetrode(QWidget* window) const {
  window->setWindowTitle(TitleWithTetrode(window->windowTitle(), TetrodeOf(session_)));
}

bool Main_Form::ChooseParameterFile() {
  for (;;) {
    const QString chosen = dialogs_.OpenFile(this, {"Select Tobrescan Output File",
                                                    "Tobrescan Output (*.Ntt.parms)|*.Ntt.parms|All files (*.*)|*.*",
                                                    {},
                                                    "Ntt.parms"});
    // The run's files are in the folder of the chosen file.
    const std::string path = PathOf(chosen);
    std::error_code error;
    if (!chosen.isEmpty()) std::filesystem::current_path(PlatformPath(path).parent_path(), error);
    session_.DataDirectory = PathText(std::filesystem::current_path(error));
    range_->txtCurDir->setText(FromText(session_.DataDirectory));
    range_->txtCurDir->setCursorPosition(0);
    try {
      OpenParameterFile(session_, path);
      if (EnterFolder()) return true;
    } catch (const ProgramEnd& end) {
      ShowMessage(end.what(), end.Title());
      return false;
    } catch (const CommandError& refused) {
      ShowMessage(refused.what(), refused.Title());
    }
  }
}

bool Main_Form::EnterFolder() {
  folder_ = FolderLock(session_.DataDirectory);
  if (folder_.Taken()) {
    const std::string holder = "Another program is at work in this folder: " + folder_.Holder() + ".";
    if (!dialogs_.Confirm(this, FromText(holder + "\n\nOpen " + session_.DataDirectory +
                                         " all the same? Nothing would be saved there of its own accord then, neither "
                                         "when you leave nor in between; what you write yourself would be.")))
      return false;
    AppendMessage(holder + " No autosave, exit copy or axis scales are written here; what you write yourself is.");
  }
  for (const char* place : {"", "\\.."}) RemoveLeftovers(session_.DataDirectory + place);
  return true;
}

void Main_Form::Run(const std::function<void()>& handler) {
  if (working_) {
    SayAtWork();
    return;
  }
  status_->clear();
  advice_.clear();
  stopped_ = "Stopped; everything is as it was before.";
  try {
    if (!RunCommand(*this, handler)) status_->setText(advice_.isEmpty() ? NextStep() : advice_);
  } catch (const ProgramEnd& end) {
    ShowMessage(end.what(), end.Title());
    SaveBeforeTheEnd();
    EndProgram();
  } catch (const Interrupted&) {
    status_->setText(stopped_);
  }
}

QString Main_Form::NextStep() const {
  if (!PointsLoaded(session_)) return "Load Points loads the range above; then a cluster is chosen by its number.";
  if (session_.CurrentCluster == 0) return "Choose a cluster: click its number, or type it.";
  return {};
}

void Main_Form::Work(const std::function<void()>& work) {
  const QScopeGuard done = qScopeGuard([this] {
    working_ = stopWork_ = false;
    qApp->removeEventFilter(&atWork_);
    if (std::exchange(closeAfterWork_, false)) QTimer::singleShot(0, this, &Main_Form::close);
  });
  working_ = true;
  qApp->installEventFilter(&atWork_);
  work();
}

void Main_Form::ChangeCut(const std::function<void(const Progress&)>& change) {
  Work([&] {
    WorkPace pace(*this);
    pallomir::ChangeCut(session_, [&] { change(pace); });
  });
}

bool Main_Form::ChangeCutOnProjection(const std::function<void(const Progress&)>& change) {
  try {
    ChangeCut(change);
    return true;
  } catch (const Interrupted&) {
    status_->setText("Stopped; the polygon is open as before.");
    return false;
  }
}

void Main_Form::SayAtWork() {
  status_->setText("Pallomir is at work; Esc stops it.");
}

void Main_Form::ShowMessage(std::string_view text, std::string_view title) {
  QWidget* active = QApplication::activeWindow();
  dialogs_.ShowMessage(active ? active : this, FromText(text), FromText(title));
}

void Main_Form::AppendMessage(std::string_view line) {
  txtMessages_->appendPlainText(FromText(line));
  txtMessages_->moveCursor(QTextCursor::End);
}

void Main_Form::ShowProgress(double share) {
  range_->ProgressBar1->setValue(BarValue(share));
  range_->ProgressBar1->show();
}

void Main_Form::HideProgress() {
  range_->ProgressBar1->hide();
}

bool Main_Form::PumpEvents() {
  QCoreApplication::processEvents();
  return !stopWork_;
}

void Main_Form::StopHeard() {
  // A program about to close does not restore the former points.
  if (!closeAfterWork_) stopWork_ = false;
}

void Main_Form::EndProgram() {
  closing_ = true;
  close();
}

bool Main_Form::CloseForms() {
  if (timeEpochs_ && timeEpochs_->StopWork()) {
    // End the search first, then the program.
    connect(timeEpochs_, &TimeEpochs::Idle, this, &Main_Form::close,
            static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection | Qt::UniqueConnection));
    return false;
  }
  const std::initializer_list<QDialog*> forms = {timeEpochs_.data(), clNote_.data()};
  for (QDialog* form : forms)
    if (form && form->isVisible() && !form->close()) return false;
  return true;
}

void Main_Form::Escape() {
  if (working_)
    stopWork_ = true;
  else if (projections_->SlowRedrawRunning())
    projections_->StopSlowRedraw();
  else if (analyses_->CenterArmed())
    ArmCenter(false);
  else if (projections_->PolygonOpen())
    Run([this] {
      ChangeCut([this](const Progress& progress) { projections_->TakeBackPolygon(progress); });
      AfterEdit();
      status_->setText("The open polygon was taken back.");
    });
}

void Main_Form::closeEvent(QCloseEvent* event) {
  if (working_) {
    // End the operation first, then the program.
    stopWork_ = closeAfterWork_ = true;
    event->ignore();
    return;
  }
  // The window's close box does the same as Exit.
  if (!closing_ && !(CloseForms() && SaveOnExit())) {
    event->ignore();
    return;
  }
  closing_ = true;
  Timer1_->stop();
  folder_ = FolderLock();
  projections_->Supersede();
  projections_->StopSlowRedraw();
  projections_->hide();
  event->accept();
  // Not quit(), which other windows could still refuse.
  if (QThread::currentThread()->loopLevel() > 0) QCoreApplication::exit();
}

bool Main_Form::eventFilter(QObject* watched, QEvent* event) {
  auto* widget = qobject_cast<QWidget*>(watched);
  const auto* mouse = dynamic_cast<QMouseEvent*>(event);
  const auto* key = dynamic_cast<QKeyEvent*>(event);
  const bool enter = key && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter);
  const auto type = event->type();

  if (const auto box = doubleClicks_.find(widget); box != doubleClicks_.end()) {
    if (type == QEvent::MouseButtonDblClick || (type == QEvent::KeyPress && enter)) {
      Run([&] { (this->*box->second)(); });
      return true;
    }
  }
  if (watched == multipleEpochs_ && type == QEvent::Close && working_) {
    stopWork_ = true;
    event->ignore();
    return true;
  }
  if (const auto popup = popups_.find(widget); popup != popups_.end()) {
    if (type == QEvent::MouseButtonRelease && mouse->button() == Qt::RightButton)
      popup->second->popup(mouse->globalPosition().toPoint());
    if (const auto* menu = dynamic_cast<QContextMenuEvent*>(event);
        menu && menu->reason() == QContextMenuEvent::Keyboard)
      popup->second->popup(menu->globalPos());
  }
  // A key pressed elsewhere, in a message box that has closed since, does not count as the list's.
  const bool listKey = watched == axes_->lstY_Axis && (type == QEvent::KeyPress || type == QEvent::KeyRelease);
  const bool keyWasDown = std::exchange(listKeyDown_, listKey ? type == QEvent::KeyPress : listKeyDown_);
  if ((listKey && type == QEvent::KeyRelease && keyWasDown) ||
      (watched == axes_->lstY_Axis->viewport() && type == QEvent::MouseButtonRelease)) {
    // After the list itself has handled the event.
    QTimer::singleShot(0, this, [this] { Run([this] { lstY_Axis_Up(); }); });
  }
  if (watched == display_->cmdRedraw && type == QEvent::MouseButtonPress && mouse->button() == Qt::RightButton)
    Run([this] { cmdRedraw_MouseDown(); });
  return QMainWindow::eventFilter(watched, event);
}

}  // namespace pallomir
