#include "gui/forms/file_menu.h"

#include <QtWidgets>

#include "gui/controls/chosen_path.h"
#include "gui/controls/controls.h"
#include "pallomir/files/error.h"
#include "pallomir/session/start_up.h"

namespace pallomir {

namespace {

constexpr const char* kRecent = "RecentFiles";
constexpr qsizetype kMostRecent = 10;

/// "&1  /rat7/TT1/TT1.Ntt.parms". Of a long path the end is shown, which tells recordings apart.
QString Caption(qsizetype number, const QString& file) {
  constexpr qsizetype kShown = 70;
  const QString path = file.size() <= kShown ? file : QString::fromUtf8("\u2026") + file.right(kShown);
  return QString("%1%2  %3").arg(number < kMostRecent ? "&" : "").arg(number).arg(QString(path).replace('&', "&&"));
}

}  // namespace

FileMenu::FileMenu(Workbench& bench, QWidget* parent)
    : QMenu("File", parent), bench_(bench), dropped_([this](const QStringList& files) { TakeDropped(files); }) {
  setObjectName("mnuMainFile");
  bench_.AddEntry(
      this, "mnuOpen", "&Open...", "Open another recording; this one stays open", [this] { mnuOpen_Click(); },
      Qt::CTRL | Qt::Key_O);
  mnuOpenRecent_ = addMenu("Open &Recent");
  mnuOpenRecent_->setObjectName("mnuOpenRecent");
  mnuOpenRecent_->setToolTipsVisible(true);
  connect(mnuOpenRecent_, &QMenu::aboutToShow, this, &FileMenu::ListRecent);
  ListRecent();
}

QString FileMenu::AskForRecording(Dialogs& dialogs, QWidget* parent) {
  return dialogs.OpenFile(parent, {"Select Tobrescan Output File",
                                   "Tobrescan Output (*.Ntt.parms)|*.Ntt.parms|All files (*.*)|*.*",
                                   {},
                                   "Ntt.parms"});
}

void FileMenu::NoteOpened(const QString& parameterFile) {
  auto files = bench_.ThePreferences().Get<QStringList>(kRecent);
  files.removeAll(parameterFile);
  files.prepend(parameterFile);
  bench_.ThePreferences().Set(kRecent, QStringList(files.first(std::min(files.size(), kMostRecent))));
}

void FileMenu::mnuOpen_Click() {
  const QString chosen = AskForRecording(bench_.TheDialogs(), QApplication::activeWindow());
  if (!chosen.isEmpty()) Open(chosen);
}

void FileMenu::ListRecent() {
  bench_.ThePreferences().Reload();
  mnuOpenRecent_->clear();
  const QStringList files = bench_.ThePreferences().Get<QStringList>(kRecent).mid(0, kMostRecent);
  for (qsizetype i = 0; i < files.size(); ++i) {
    QAction* entry =
        bench_.AddEntry(mnuOpenRecent_, Indexed("mnuRecent", static_cast<int>(i)), Caption(i + 1, files[i]),
                        PlainToolTip(files[i]), [this, file = files[i]] { Open(file); });
    entry->setEnabled(QFileInfo::exists(files[i]));
  }
  mnuOpenRecent_->addSeparator();
  bench_
      .AddEntry(mnuOpenRecent_, "mnuClearList", "&Clear list", "Forget these recordings; their files stay",
                [this] { mnuClearList_Click(); })
      ->setEnabled(!files.isEmpty());
}

void FileMenu::mnuClearList_Click() {
  bench_.ThePreferences().Set(kRecent, QStringList());
}

void FileMenu::TakeDropped(const QStringList& files) {
  bench_.Run([&] {
    if (files.size() != 1) throw CommandError(ErrorKind::Refused, "Drop one recording at a time.");
    Open(files.first());
  });
}

void FileMenu::Open(const QString& chosen) {
  const QString recording = ShownPath(RecordingAt(PathOf(chosen)));
  if (!bench_.TheDialogs().StartProgram(recording))
    throw CommandError(ErrorKind::NotReady, "Pallomir could not be started once more for this recording.");
  bench_.Say(recording + " opens in a window of its own.");
}

}  // namespace pallomir
