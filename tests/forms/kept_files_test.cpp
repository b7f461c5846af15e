// Files are never lost without a question: notes, cuts, protected files, files in other folders.

#include "form_tests.h"
#include "pallomir/files/text_header.h"
#include "program.h"

using namespace pallomir;

namespace {

QByteArray Read(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString Status(const Main_Form& form) {
  return form.statusBar()->findChild<QLabel*>()->text();
}

QStringList Named(const Program& program, const QString& pattern) {
  return QDir(program.Path("TT1")).entryList({pattern}, QDir::Files);
}

QDialog* Notes(const Program& program) {
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  program.Click("cmdClNote");
  QApplication::processEvents();
  return program.Get<QDialog>("frmClNote");
}

void Cut(const Program& program, int c) {
  program.Click(QString("lblNewCluster(%1)").arg(c));
  program.DrawPolygon({{c * 200.0, 10}, {c * 200 + 150.0, 10}, {c * 200 + 150.0, 90}});
}

/// Another run of the program in the same folder.
struct Again {
  explicit Again(Program& program) : Form(Shared, program.Answers) {
    program.Answers.FilesToOpen = {program.Path("TT1/TT1.Ntt.parms")};
    Form.Form_Load();
  }
  QString Messages() const { return Box<QPlainTextEdit>(&Form, "txtMessages")->toPlainText(); }

  Session Shared;
  Main_Form Form;
};

}  // namespace

class KeptFilesTest : public QObject {
  Q_OBJECT

 private slots:
  void NotesThatCannotBeReadAreKeptUntilTheUserAgrees() {
    Program program;
    const QByteArray good = "0,\"\",\"\"\r\n", bad = good.repeated(6) + "6,\"Good\",\"he said \"no\"\"\r\n";
    program.Write("TT1/ClNotes", bad);
    program.Write("TT1/ClNotes.bak", good.repeated(30) + "30,\"Fair\",\"kept\"\r\n");
    const QByteArray backup = Read(program.Path("TT1/ClNotes.bak"));
    program.Start();
    for (int opened = 0; opened < 2; ++opened) {
      QDialog* notes = Notes(program);
      QVERIFY(program.Answers.Messages.takeLast().contains("ClNotes, line 7: "));
      QVERIFY(notes->close());  // nothing was noted, so there is nothing to ask
    }
    QDialog* notes = Notes(program);
    Box<QRadioButton>(notes, "optGood(3)")->click();
    program.Answers.Agree = false;
    QVERIFY(!notes->close());
    QVERIFY(!program.Form.close());
    QCOMPARE(program.Answers.Questions.size(), 2);
    QVERIFY(program.Answers.Questions.takeLast().contains("ClNotes, line 7: "));
    QCOMPARE(Read(program.Path("TT1/ClNotes")), bad);
    QCOMPARE(Read(program.Path("TT1/ClNotes.bak")), backup);
    program.Answers.Agree = true;
    QVERIFY(program.Form.close());
    QVERIFY(Read(program.Path("TT1/ClNotes")).contains("3,\"Good\",\"\""));
    QCOMPARE(Read(program.Path("TT1/" + Named(program, "ClNotes.2*").value(0))), bad);
    QCOMPARE(Read(program.Path("TT1/ClNotes.bak")), backup);
  }

  void TheNewestCutIsNamedAndKeptEvenIfNobodyReadsIt() {
    Program program;
    program.Load();
    Cut(program, 1);
    program.Click("cmdWriteCBFile");
    Cut(program, 2);
    QVERIFY(program.Form.close());
    const QByteArray cut = Read(program.Path("TT1/cbfile.exit.txt"));
    for (int start = 0; start < 2; ++start) {
      Again again(program);
      const QString newest = start == 0 ? "cbfile.exit" : "cbfile.exit.2";
      QVERIFY2(again.Messages().contains("The newest cut here is " + newest), qPrintable(again.Messages()));
      QVERIFY(Status(again.Form).startsWith("The newest cut here is " + newest));
      QVERIFY(again.Form.close());
    }
    QCOMPARE(Named(program, "cbfile.exit.2*.txt").size(), 1);
    QCOMPARE(Read(program.Path("TT1/" + Named(program, "cbfile.exit.2*.txt").value(0))), cut);
  }

  void ACutThatWasReadIsReplacedLikeAnyOther() {
    Program program;
    program.Load();
    Cut(program, 1);
    QVERIFY(program.Form.close());
    Again again(program);
    Box<QPushButton>(&again.Form, "cmdLoadPoints")->click();
    Box<QLineEdit>(&again.Form, "txtCBFileRead")->setText("cbfile.exit");
    Box<QPushButton>(&again.Form, "cmdReadCBFile")->click();
    QVERIFY(again.Form.close());
    QCOMPARE(Named(program, "cbfile.exit.2*.txt"), QStringList());
  }

  void ANameFromTheFolderLeadsOutOfItOnlyIfTheUserAgrees() {
    Program program;
    program.Write("TT1/Defaults", QByteArray::fromStdString(TextHeader("Defaults")) +
                                      "\"cbfilewrite\",\"..\\theirs\"\r\n\"clustfile\",\"..\\cl\"\r\n");
    program.Load();
    Cut(program, 1);
    program.Answers.Agree = false;
    program.Click("cmdWriteCBFile");
    program.Click("cmdWriteClustFile");
    QCOMPARE(program.Answers.Questions.size(), 2);
    QVERIFY(program.Answers.Questions[0].contains(QDir(program.Path("TT1/..")).canonicalPath() + "/theirs.txt"));
    QVERIFY(!QFile::exists(program.Path("theirs.txt")) && !QFile::exists(program.Path("cl.1")));
    program.Type("txtCBFileWrite", "..\\mine");  // typed by the user
    program.Click("cmdWriteCBFile");
    QCOMPARE(program.Answers.Questions.size(), 2);
    QVERIFY(QFile::exists(program.Path("mine.txt")));
    program.Type("txtCBFileWrite", "..\\theirs");
    program.Answers.Agree = true;
    program.Click("cmdWriteCBFile");
    program.Click("cmdWriteCBFile");  // asked about once
    QCOMPARE(program.Answers.Questions.size(), 3);
    QVERIFY(QFile::exists(program.Path("theirs.txt")));
  }

  void AWriteProtectedFileIsReplacedOnlyIfTheUserAgrees() {
    Program program;
    program.Load();
    program.Click("cmdWriteCBFile");
    Cut(program, 1);
    const QString path = program.Path("TT1/cbfile.m1.txt");
    const QByteArray before = Read(path);
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner));
    program.Answers.Agree = false;
    program.Click("cmdWriteCBFile");
    QVERIFY(program.Answers.Questions.takeLast().contains("cbfile.m1.txt"));
    QCOMPARE(Read(path), before);
    program.Answers.Agree = true;
    program.Click("cmdWriteCBFile");
    QVERIFY(Read(path) != before);
  }

  void DefaultsAreSavedSilentlyAndAFileWithoutHeaderIsReported() {
    Program program;
    program.Write("TT1/Defaults", "\"posfile\",\"P3\"\r\n");
    program.Start();
    QVERIFY(program.Messages().contains("Defaults has no header: nothing was taken from it"));
    const QString path = program.Path("TT1/Defaults");
    program.Answers.Agree = false;
    program.Answers.FilesToOpen = {path};
    program.Click("cmdSaveDefaults");
    QVERIFY(program.Answers.Questions.takeLast().contains("is not a Defaults file"));
    QVERIFY(Read(path).startsWith("\"posfile\""));
    QFile::remove(path);
    for (const char* name : {"first", "second"}) {
      program.Type("txtPosFile", name);
      program.Answers.FilesToOpen = {path};
      program.Click("cmdSaveDefaults");
      QVERIFY(Read(path).contains(name));
    }
    QVERIFY(!program.Answers.Asked.ConfirmReplacing);
    QVERIFY(program.Answers.Questions.isEmpty() && program.Answers.Messages.isEmpty());
    QCOMPARE(Status(program.Form), "");
    program.Type("txtPosFile", "a\"b");
    program.Answers.FilesToOpen = {path};
    program.Click("cmdSaveDefaults");
    QVERIFY(program.Answers.Messages.takeLast().startsWith("ERROR|A Defaults file cannot hold a double quote: a\"b."));
  }

  void FaultsInDefaultsHaveTheirTitles() {
    const std::pair<const char*, const char*> faults[] = {
        {"\"EpochEventIDs\",\"a,9\"\r\n", "ERROR|Defaults, line 6: \"a\" is not a record number."},
        {"\"EpochEventIDs\",\"1e99,9\"\r\n", "|Defaults, line 6: record 1E+99 is too large."},
        {"\"posfile\",\"x\r\n", "|Defaults, line 6: the quotes round \"x\" are not closed."},
    };
    for (const auto& [line, message] : faults) {
      Program program;
      program.Write("TT1/Defaults", QByteArray::fromStdString(TextHeader("Defaults")) + line);
      program.Start();
      QCOMPARE(program.Answers.Messages, QStringList{message});
    }
  }

  void AFileThatDisappearedBeforeGoDeletesSilentlyAndUndoRestores() {
    Program program;
    program.Load();
    Cut(program, 1);
    Cut(program, 2);
    program.Click("cmdWriteCBFile");
    program.Form.findChild<QAction*>("mnuReadSelectedClusters")->trigger();
    auto* choose = program.Get<QDialog>("ChooseClusterForm");
    Box<QCheckBox>(choose, "chkCluster(2)")->click();
    QVERIFY(QFile::remove(program.Path("TT1/cbfile.m1.txt")));
    Box<QPushButton>(choose, "cmdGo")->click();
    QVERIFY(program.Answers.Messages.isEmpty());
    QVERIFY(program.Shared.ClusterDefined[1] && !program.Shared.ClusterDefined[2]);
    program.Click("cmdUndo");
    QVERIFY(program.Shared.ClusterDefined[2]);
  }
};

static const bool added = AddFormTest<KeptFilesTest>();

#include "kept_files_test.moc"
