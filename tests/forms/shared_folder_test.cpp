// A folder from somebody else, and one in which another program is at work.

#include <sys/stat.h>

#include <filesystem>

#include "form_tests.h"
#include "program.h"

using namespace pallomir;

class SharedFolderTest : public QObject {
  Q_OBJECT

 private slots:
  void ForeignLinksAndPipesRedirectNoWrite() {
    Program program;
    program.Write("victim", "a stranger's");
    const QStringList names = {"cbfile.exit.txt", "AxesScaleFile", "ClNotes", "cbfile.tmp.txt"};
    program.Write("TT1/cbfile.exit.txt", "an earlier one");
    program.Write("TT1/ClNotes", QByteArray("1,\"Good\",\"\"\r\n").repeated(31));
    for (const QString& name : names) {
      if (!QFile::exists(program.Path("TT1/" + name))) Link(program, name);
      Link(program, name + ".bak");
      if (mkfifo(program.Path("TT1/" + name + ".saving~").toUtf8(), 0600) != 0) QFAIL("no pipe");
    }
    program.Load();
    Cut(program);
    program.Click("cmdClNote");
    QVERIFY(program.Get("frmClNote")->close());
    QVERIFY(program.Form.close());
    QCOMPARE(Read(program, "victim"), "a stranger's");
    QCOMPARE(program.Answers.Messages, QStringList());
    for (const char* name : {"TT1/cbfile.exit.txt", "TT1/AxesScaleFile", "TT1/ClNotes", "TT1/ClNotes.bak"})
      QVERIFY2(!QFileInfo(program.Path(name)).isSymLink(), name);
    QVERIFY(Read(program, "TT1/cbfile.exit.txt").contains("MPeak-1"));
  }

  void LeftoversOfAKilledProgramAreRemovedAtStart() {
    Program program;
    program.Write("TT1/cbfile.exit.txt.0123456789abcdef.saving~", "half");
    program.Write("CenterCoords.0123456789abcdef.saving~", "half");
    program.Start();
    QVERIFY(!QFile::exists(program.Path("TT1/cbfile.exit.txt.0123456789abcdef.saving~")));
    QVERIFY(!QFile::exists(program.Path("CenterCoords.0123456789abcdef.saving~")));
  }

  void ASecondProgramAsksAndSavesNothingAutomatically() {
    Program first;
    first.Load();

    Session session;
    Main_Form second(session, first.Answers);
    first.Answers.FilesToOpen = {first.Path("TT1/TT1.Ntt.parms")};
    first.Answers.Agree = false;
    QVERIFY(!second.Form_Load());  // the file dialog came back and was cancelled
    QCOMPARE(first.Answers.Questions.size(), 1);
    QVERIFY(first.Answers.Questions.takeLast().contains(QString("process %1 on ").arg(qApp->applicationPid())));

    first.Answers.Agree = true;
    first.Answers.FilesToOpen = {first.Path("TT1/TT1.Ntt.parms")};
    QVERIFY(second.Form_Load());
    QVERIFY(Box<QPlainTextEdit>(&second, "txtMessages")->toPlainText().contains("No autosave, exit copy"));
    session.ClusterDefined[1] = true;
    first.Answers.Questions.clear();
    first.Answers.Agree = false;
    QVERIFY(!second.close());
    QVERIFY(first.Answers.Questions.takeLast().contains("no exit copy"));
    first.Answers.Agree = true;
    QVERIFY(second.close());
    QVERIFY(!QFile::exists(first.Path("TT1/cbfile.exit.txt")) && !QFile::exists(first.Path("TT1/AxesScaleFile")));

    // The first program exits as usual, and then the folder is free.
    QVERIFY(first.Form.close());
    QVERIFY(QFile::exists(first.Path("TT1/cbfile.exit.txt")));
    Session free;
    Main_Form third(free, first.Answers);
    first.Answers.FilesToOpen = {first.Path("TT1/TT1.Ntt.parms")};
    first.Answers.Questions.clear();
    QVERIFY(third.Form_Load());
    QCOMPARE(first.Answers.Questions, QStringList());
  }

 private:
  static void Link(const Program& program, const QString& name) {
    std::filesystem::create_symlink("../victim", program.Path("TT1/" + name).toStdString());
  }
  static void Cut(const Program& program) {
    program.Click("lblNewCluster(2)");
    program.DrawPolygon({{200, 10}, {700, 10}, {700, 90}, {200, 90}});
  }
  static QByteArray Read(const Program& program, const QString& name) {
    QFile file(program.Path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
};

static const bool added = AddFormTest<SharedFolderTest>();

#include "shared_folder_test.moc"
