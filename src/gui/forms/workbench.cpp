#include "gui/forms/workbench.h"

#include <QtWidgets>

#include "gui/controls/controls.h"
#include "gui/controls/run_command.h"
#include "gui/controls/titles.h"
#include "gui/controls/toolkit_values.h"
#include "pallomir/clusters/change_cut.h"
#include "pallomir/files/error.h"
#include "pallomir/files/number_text.h"
#include "pallomir/files/save_file.h"
#include "pallomir/files/write_target.h"
#include "pallomir/session/work_pace.h"

namespace pallomir {

Workbench::Workbench(Session& session, Dialogs& dialogs, Preferences preferences, QWidget* window)
    : session_(session), dialogs_(dialogs), preferences_(std::move(preferences)), window_(window), windows_{window} {}

void Workbench::KeepText(QLineEdit* box, std::string& text) {
  text = box->text().toStdString();
  connect(box, &QLineEdit::textChanged, this, [&text](const QString& typed) { text = typed.toStdString(); });
  connect(this, &Workbench::NamesRead, box, [box, &text] { box->setText(QString::fromStdString(text)); });
}

bool Workbench::TimesTyped() const {
  return NumberFromText(StartTime) && NumberFromText(EndTime);
}

bool Workbench::TimesSpanLoaded() const {
  const auto stamps = session_.Points.Stamps().first(session_.Points.Rows());
  if (!TimesTyped() || stamps.empty()) return false;
  const auto [first, last] = std::minmax_element(stamps.begin(), stamps.end());
  return *NumberFromText(StartTime) <= static_cast<double>(*first) &&
         static_cast<double>(*last) <= *NumberFromText(EndTime);
}

void Workbench::Run(const std::function<void()>& handler) {
  if (working_) {
    SayAtWork();
    return;
  }
  Say({});
  advice_.clear();
  stopped_ = "Stopped; nothing was changed.";
  try {
    if (!RunCommand(*this, handler)) Say(advice_.isEmpty() ? NextStep() : advice_);
  } catch (const ProgramEnd& end) {
    ShowMessage(end.what(), {});
    emit MustEnd();
  } catch (const Interrupted&) {
    Say(stopped_);
  }
  emit Settled();
}

void Workbench::OnKey(const QKeySequence& key, const std::function<void()>& handler) {
  for (QWidget* window : windows_) On(new QShortcut(key, window), &QShortcut::activated, handler);
}

QAction* Workbench::AddEntry(QMenu* menu, const QString& name, const QString& caption, const QString& toolTip,
                             const std::function<void()>& handler, const QKeySequence& key) {
  QAction* entry = MakeEntry(menu, name, caption);
  entry->setToolTip(toolTip);
  menu->setToolTipsVisible(true);
  On(entry, &QAction::triggered, handler);
  entry->setShortcut(key);
  if (!key.isEmpty())
    for (QWidget* window : windows_) window->addAction(entry);
  return entry;
}

void Workbench::Work(const std::function<void()>& work) {
  const QScopeGuard done = qScopeGuard([this] {
    working_ = stopWork_ = false;
    qApp->removeEventFilter(&atWork_);
    if (std::exchange(closeAfterWork_, false)) QTimer::singleShot(0, this, &Workbench::CloseAsked);
  });
  working_ = true;
  qApp->installEventFilter(&atWork_);
  work();
}

void Workbench::ChangeCut(const std::function<void(const Progress&)>& change) {
  Work([&] {
    WorkPace pace(*this);
    pallomir::ChangeCut(session_, [&] { change(pace); });
  });
}

QString Workbench::NextStep() const {
  if (!PointsLoaded(session_)) return "Press Load Points to load the range above, then choose a cluster by its number.";
  if (session_.CurrentCluster == 0) return "Choose a cluster: click its number, or type it.";
  return {};
}

bool Workbench::ClusterChosen() {
  if (session_.CurrentCluster != 0) return true;
  Say(NextStep());
  return false;
}

void Workbench::Ask(const QString& question) {
  if (!Agrees(question)) throw Interrupted();
}

void Workbench::AskBeforeReplacing(const std::vector<std::filesystem::path>& paths) {
  QStringList shut;
  for (const std::filesystem::path& path : paths)
    if (IsWriteProtected(path)) shut << FromText(PathText(path));
  if (!shut.isEmpty()) Ask("Write-protected:\n\n" + shut.join('\n') + "\n\nReplace anyway?");
}

void Workbench::NameTetrode(QWidget* window) const {
  window->setWindowTitle(TitleWithTetrode(window->windowTitle(), TetrodeOf(session_)));
}

void Workbench::ShowMessage(std::string_view text, std::string_view title) {
  QWidget* active = QApplication::activeWindow();
  dialogs_.ShowMessage(active ? active : window_, FromText(text), FromText(title));
}

bool Workbench::PumpEvents() {
  QCoreApplication::processEvents();
  return !stopWork_;
}

void Workbench::StopHeard() {
  // A program about to close does not restore the former points.
  if (!closeAfterWork_) stopWork_ = false;
}

}  // namespace pallomir
