#include "form_tests.h"
#include "gui/forms/help_menu.h"
#include "gui/forms/key_table.h"
#include "program.h"

using namespace pallomir;

namespace {

void Trigger(const Program& program, const QString& entry) {
  program.Get<QAction>(entry)->trigger();
  QApplication::processEvents();
}

QString Status(const Program& program) {
  return program.Form.statusBar()->findChild<QLabel*>()->text();
}

/// Drops files on a widget as the desktop does; false if it does not take them.
bool Drop(QWidget* on, const QStringList& files) {
  QMimeData data;
  QList<QUrl> places;
  for (const QString& file : files) places << QUrl::fromLocalFile(file);
  data.setUrls(places);
  QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
  enter.ignore();
  QApplication::sendEvent(on, &enter);
  if (!enter.isAccepted()) return false;
  QDropEvent drop(QPointF(5, 5), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
  QApplication::sendEvent(on, &drop);
  QApplication::processEvents();
  return drop.dropAction() == Qt::CopyAction;
}

/// The rows of the guide's table of keys.
QStringList GuideRows() {
  QFile file(PALLOMIR_GUIDE);
  if (!file.open(QIODevice::ReadOnly)) return {};
  const QString guide = QString::fromUtf8(file.readAll());
  const QStringList lines = guide.section("\n## Keys and gestures\n", 1).section("\n## ", 0, 0).split('\n');
  return lines.filter(QRegularExpression("^\\|")).mid(2);
}

}  // namespace

class MenusTest : public QObject {
  Q_OBJECT

 private slots:
  void MenusAreInTheirOrder() {
    const Program program;
    QStringList menus;
    const QList<QAction*> bar = program.Form.menuBar()->actions();
    for (const QAction* menu : bar) menus << menu->text().remove('&');
    QCOMPARE(menus, (QStringList{"File", "Range", "View", "Help"}));
  }

  void ARecordingOpensInANewStart() {
    Program program;
    program.Start();
    program.Write("TT1/TT2.Ntt.parms", "");
    program.Answers.FilesToOpen = {program.Path("TT1/TT2.Ntt.parms")};
    Trigger(program, "mnuOpen");
    QCOMPARE(program.Answers.Asked.Title, QString("Select Tobrescan Output File"));
    QCOMPARE(program.Answers.Started, QStringList{program.Path("TT1/TT2.Ntt.parms")});
    QVERIFY(Status(program).endsWith("TT2.Ntt.parms opens in a window of its own."));
    // Cancelled, a foreign file, a desktop that cannot start it.
    Trigger(program, "mnuOpen");
    QVERIFY(program.Answers.Messages.isEmpty());
    program.Answers.FilesToOpen = {program.Path("VideoSampling")};
    Trigger(program, "mnuOpen");
    program.Answers.FilesToOpen = {program.Path("TT1/TT2.Ntt.parms")};
    program.Answers.DesktopServes = false;
    Trigger(program, "mnuOpen");
    QCOMPARE(program.Answers.Messages,
             (QStringList{"|VideoSampling is not a recording: the name of a parameter file ends in .Ntt.parms.",
                          "|Pallomir could not be started once more for this recording."}));
    QCOMPARE(program.Answers.Started.size(), 2);
  }

  void ADroppedRecordingOpensFromEveryWindow() {
    Program program;
    program.Start();
    const QString file = program.Path("TT1/TT1.Ntt.parms");
    QVERIFY(Drop(&program.Form, {file}));
    QVERIFY(Drop(program.Get("txtMessages"), {file}));
    QVERIFY(Drop(program.View(), {program.Path("TT1")}));
    QCOMPARE(program.Answers.Started, QStringList({file, file, file}));
    QVERIFY(Drop(&program.Form, {file, file}));
    QVERIFY(Drop(&program.Form, {program.Path("VideoSampling")}));
    QVERIFY(Drop(&program.Form, {program.Path("")}));
    QCOMPARE(program.Answers.Messages.size(), 3);
    QCOMPARE(program.Answers.Messages[0], QString("|Drop one recording at a time."));
    QVERIFY(program.Answers.Messages[2].endsWith(" holds no recording (a parameter file, .Ntt.parms)."));
    QCOMPARE(program.Answers.Started.size(), 3);
    QVERIFY(!Drop(&program.Form, {}));
  }

  void TheLastTenRecordingsAreRemembered() {
    const QTemporaryDir folder;
    const QString file = folder.filePath("preferences.json");
    Program program;
    for (int i = 1; i <= 11; ++i) {
      const QString name = QString("TT1/TT%1.Ntt.parms").arg(i);
      QVERIFY(i == 1 || QFile::copy(program.Path("TT1/TT1.Ntt.parms"), program.Path(name)));
      Session session;
      program.Answers.FilesToOpen = {program.Path(name)};
      Main_Form form(session, program.Answers, Preferences(file.toStdString()));
      QVERIFY(form.Form_Load());
    }
    QFile::remove(program.Path("TT1/TT10.Ntt.parms"));
    Session session;
    Main_Form form(session, program.Answers, Preferences(file.toStdString()));
    program.Answers.FilesToOpen = {program.Path("TT1/TT5.Ntt.parms")};
    QVERIFY(form.Form_Load());
    auto* menu = Box<QMenu>(&form, "mnuOpenRecent");
    const auto names = [&] {
      emit menu->aboutToShow();
      QStringList shown;
      const QList<QAction*> entries = menu->actions();
      for (const QAction* entry : entries)
        shown << (entry->isEnabled() ? "" : "-") + entry->text().section('/', -1).section('.', 0, 0);
      return shown;
    };
    const QStringList last = {"TT5", "TT11", "-TT10", "TT9", "TT8", "TT7",
                              "TT6", "TT4",  "TT3",   "TT2", "",    "&Clear list"};
    QCOMPARE(names(), last);
    Box<QAction>(&form, "mnuRecent(1)")->trigger();
    QCOMPARE(program.Answers.Started, QStringList{program.Path("TT1/TT11.Ntt.parms")});
    Box<QAction>(&form, "mnuClearList")->trigger();
    QCOMPARE(names(), (QStringList{"", "-&Clear list"}));
    QVERIFY(Preferences(file.toStdString()).Get<QStringList>("RecentFiles").isEmpty());
  }

  void WriteBoundariesAndExitDoWhatTheirButtonsDo() {
    Program program;
    program.Load();
    program.Type("txtCBFileWrite", "cbfile.m7");
    QTest::keySequence(program.View(), QKeySequence(Qt::CTRL | Qt::Key_S));
    QVERIFY(QFile::exists(program.Path("TT1/cbfile.m7.txt")));
    QFile::remove(program.Path("TT1/cbfile.m7.txt"));
    QTest::keySequence(&program.Form, QKeySequence(Qt::CTRL | Qt::Key_S));
    QVERIFY(QFile::exists(program.Path("TT1/cbfile.m7.txt")));
    QTest::keySequence(program.View(), QKeySequence(Qt::CTRL | Qt::Key_Q));
    QVERIFY(QFile::exists(program.Path("TT1/cbfile.exit.txt")));
    QVERIFY(!program.Form.isVisible());
  }

  void TheSheetOfKeysIsTheGuidesTable() {
    QStringList rows;
    for (const KeyRow& row : KeyTable())
      rows << QString("| %1%2| %3 | %4 |").arg(row.In, *row.In == '\0' ? "" : " ", row.Keys, row.Effect);
    QCOMPARE(rows.join('\n'), GuideRows().join('\n'));
    Program program;
    program.Start();
    QTest::keyClick(program.View(), Qt::Key_F1);
    const auto* sheet = program.Get<QDialog>("KeySheet");
    QVERIFY(sheet->isVisible());
    const QString text = Box<QTextBrowser>(sheet, "sheet")->toPlainText();
    for (const KeyRow& row : KeyTable()) QVERIFY2(text.contains(QString(row.Effect).remove("**")), row.Effect);
  }

  void TheGuideIsFoundInstalledOrAmongTheSources() {
    const QTemporaryDir folder;
    const auto put = [&](const QString& name) {
      QDir(folder.path()).mkpath(QFileInfo(name).path());
      QFile(folder.filePath(name)).open(QIODevice::WriteOnly);
    };
    const QString root = QFileInfo(folder.path()).canonicalFilePath();
    QCOMPARE(HelpMenu::GuideFor(folder.filePath("usr/bin")), QString());
    put("docs/guide.md");
    QCOMPARE(HelpMenu::GuideFor(folder.filePath("build/release/src/app")), root + "/docs/guide.md");
    put("usr/share/doc/pallomir/docs/guide.md");
    put("usr/bin/pallomir");
    QCOMPARE(HelpMenu::GuideFor(folder.filePath("usr/bin")), root + "/usr/share/doc/pallomir/docs/guide.md");
    Program program;
    program.Start();
    Trigger(program, "mnuGuide");
    QVERIFY(program.Answers.Shown.value(0).endsWith("/docs/guide.md"));
    program.Answers.DesktopServes = false;
    Trigger(program, "mnuGuide");
    QVERIFY(program.Answers.Messages.value(0).startsWith("|This desktop has no program that shows /"));
    Trigger(program, "mnuAbout");
    QVERIFY(program.Answers.Messages.value(1).startsWith("About Pallomir|Pallomir " PALLOMIR_VERSION "\n"));
  }
};

static const bool added = AddFormTest<MenusTest>();

#include "menus_test.moc"
