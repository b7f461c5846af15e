#include "gui/forms/help_menu.h"

#include <QtWidgets>

#include "gui/controls/controls.h"
#include "gui/forms/key_sheet.h"
#include "pallomir/files/error.h"

namespace pallomir {

HelpMenu::HelpMenu(Workbench& bench, QWidget* parent) : QMenu("Help", parent), bench_(bench) {
  setObjectName("mnuHelp");
  bench_
      .AddEntry(
          this, "mnuKeys", "&Keys", "All keys and gestures on one sheet", [this] { mnuKeys_Click(); }, Qt::Key_F1)
      ->setShortcutContext(Qt::ApplicationShortcut);
  bench_.AddEntry(this, "mnuGuide", "&Guide", "Read the guide in the desktop's viewer", [this] { mnuGuide_Click(); });
  bench_.AddEntry(this, "mnuAbout", "&About Pallomir", "Version and licence", [this] { mnuAbout_Click(); });
}

QString HelpMenu::GuideFor(const QString& folder) {
  constexpr int kLevels = 4;  // a program lies at most that deep in the folder of its sources
  QStringList places = {"../share/doc/pallomir/docs/guide.md"};
  for (int level = 0; level <= kLevels; ++level) places << QString("../").repeated(level) + "docs/guide.md";
  for (const QString& place : places)
    if (const QFileInfo guide(QDir::cleanPath(folder + "/" + place)); guide.isFile()) return guide.canonicalFilePath();
  return {};
}

void HelpMenu::mnuKeys_Click() {
  if (!keys_) keys_ = new KeySheet(window());
  ShowOnTop(keys_);
}

void HelpMenu::mnuGuide_Click() {
  const QString folder = QCoreApplication::applicationDirPath(), guide = GuideFor(folder);
  if (guide.isEmpty())
    throw CommandError(ErrorKind::Missing, "The guide was not found beside the program in " + folder.toStdString() +
                                               "; it is docs/guide.md of Pallomir's sources.");
  if (!bench_.TheDialogs().ShowDocument(guide))
    throw CommandError(ErrorKind::Missing, "This desktop has no program that shows " + guide.toStdString() + ".");
}

void HelpMenu::mnuAbout_Click() {
  bench_.ShowMessage(
      "Pallomir " PALLOMIR_VERSION
      "\n\nCuts clusters of spikes out of tetrode recordings.\n\nFree software under the GNU General Public License, "
      "version 3 or later: you may use, study, change and pass it on. It comes without any warranty.",
      "About Pallomir");
}

}  // namespace pallomir
