// Writing the cut: cluster files, notes, the centre of the maze.

#include "form_tests.h"
#include "pallomir/clusters/classify.h"
#include "program.h"

using namespace pallomir;

class OutputFormsTest : public QObject {
  Q_OBJECT

 private slots:
  void ClusterFilesAreWritten() {
    Program program;
    program.Load();
    program.Click("lblNewCluster(2)");
    program.DrawPolygon({{200, 10}, {700, 10}, {700, 90}, {200, 90}});
    const int64_t inside = PointsInCluster(program.Shared, 2);
    QVERIFY(inside > 100);
    program.Type("txtClustFile", "cl-maze7");
    QTest::keyClick(program.Get("txtClustFile"), Qt::Key_Return);
    QVERIFY(program.Messages().contains(QString("Wrote Cluster 2: %1 points").arg(inside)));
    QVERIFY(program.Messages().contains(QString("Wrote Cluster 0 (Undefined points): %1 points").arg(1000 - inside)));
    QVERIFY(program.Messages().endsWith("Done Writing CLFiles"));
    QVERIFY(Read(program, "TT1/cl-maze7.2").endsWith("\r\n"));
    QVERIFY(QFile::exists(program.Path("TT1/Undefined_cl-maze7")));
    QVERIFY(program.Answers.Messages.isEmpty());

    // A time that is not a number is refused before anything changes.
    program.Type("txtStartTime", "noon");
    program.Click("cmdWriteClustFile");
    QCOMPARE(program.Answers.Messages.size(), 1);
    QVERIFY(!QFile::exists(program.Path("TT1/OLDcl-maze7.2")));
  }

  void ClustersAreGraded() {
    Program program;
    program.Load();
    program.Click("lblNewCluster(4)");
    QWidget* form = Notes(program);
    QVERIFY(Box<QAbstractButton>(form, "lblChooseCl(4)")->text().startsWith("▸"));
    Box<QRadioButton>(form, "optFair(4)")->click();
    Remark(form, "ok");
    QCOMPARE(Box<QLineEdit>(form, "txtRemarkDisplay")->text(), "cluster - 4 : ok");
    Box<QPushButton>(form, "cmdClearRemarks")->click();
    QCOMPARE(Box<QPlainTextEdit>(form, "txtClRemarks")->toPlainText(), " ");
    Box<QPushButton>(form, "cmdCopyRemarks")->click();
    QCOMPARE(Box<QPlainTextEdit>(form, "txtClRemarks")->toPlainText(), "ok");
    Box<QPushButton>(form, "cmdCl16to30")->click();
    QVERIFY(Box<QWidget>(form, "lblChooseCl(17)")->isVisible() && !Box<QWidget>(form, "lblChooseCl(4)")->isVisible());
    Box<QRadioButton>(form, "optGood(17)")->click();
    Box<QRadioButton>(form, "optPoor(17)")->click();
    QVERIFY(!Box<QRadioButton>(form, "optGood(17)")->isChecked());

    // Text that the file cannot store is refused at once.
    for (const char* remarks : {"say \"so\"", "two\nlines"}) Remark(form, remarks);
    QCOMPARE(program.Answers.Messages.size(), 2);
    QCOMPARE(program.Shared.Notes[17].Remarks, "");

    // The close box saves; a reopened form shows what is in the file.
    QVERIFY(form->close());
    program.Shared.Notes = {};
    form = Notes(program);
    QVERIFY(Box<QRadioButton>(form, "optFair(4)")->isChecked() && Box<QRadioButton>(form, "optPoor(17)")->isChecked());
    QCOMPARE(program.Shared.Notes[4].Remarks, "ok");
    QCOMPARE(Box<QLineEdit>(form, "txtRemarkDisplay")->text(), "cluster - 17 : ");

    // After clearing and saving, the number stays and the grade is gone.
    Box<QPushButton>(form, "cmdClear")->click();
    Box<QPushButton>(form, "cmdClNoteExit")->click();
    QVERIFY(!form->isVisible());
    QVERIFY(Read(program, "TT1/ClNotes").contains("\r\n17,\"\",\"\"\r\n"));
    form = Notes(program);
    QVERIFY(!Box<QRadioButton>(form, "optPoor(17)")->isChecked());

    // Cancel never writes.
    Box<QRadioButton>(form, "optGood(1)")->click();
    Box<QPushButton>(form, "cmdCancel")->click();
    QVERIFY(!Read(program, "TT1/ClNotes").contains("Good"));
    form = Notes(program);
    QVERIFY(!Box<QRadioButton>(form, "optGood(1)")->isChecked());
  }

  void MalformedNotesAreReportedAndKept() {
    Program program;
    program.Load();
    program.Write("TT1/ClNotes", "0,\"\",\"\"\r\n99,\"Good\",\"\"\r\n");
    program.Shared.Notes[3].Remarks = "kept";
    QWidget* form = Notes(program);
    QCOMPARE(program.Answers.Messages.size(), 1);
    QVERIFY(program.Answers.Messages[0].contains("ClNotes, line 2"));
    QVERIFY(form->isVisible());
    QCOMPARE(program.Shared.Notes[3].Remarks, "kept");
    form->close();
    QCOMPARE(program.Answers.Questions.size(), 1);
    QVERIFY(Read(program, "TT1/ClNotes").contains("kept"));
  }

  void TheCentreOfTheMazeIsClicked() {
    Program program;
    program.Load();
    const QPoint at(100, 150);
    const auto click = [&](Qt::MouseButton button) { QTest::mousePress(program.Surface(), button, {}, at); };
    program.Click("cmdWriteCenterFile");
    program.Click("cmdWriteCenterFile");
    QCOMPARE(program.Answers.Messages.takeLast(),
             "|Move cursor to center of maze and left-click mouse to write Center File");
    click(Qt::RightButton);
    program.Get<QRadioButton>("optZoom")->click();
    click(Qt::LeftButton);
    QVERIFY(!QFile::exists(program.Path("CenterCoords")));
    QTest::mouseRelease(program.Surface(), Qt::LeftButton, {}, at);
    program.Form.findChild<QRadioButton*>("optDrawClustBounds")->click();
    click(Qt::LeftButton);
    const QByteArray written = Read(program, "CenterCoords");
    const auto parts = written.trimmed().split(',');
    QVERIFY(program.Messages().endsWith("Done writing center file X=" + parts[0] + " Y=" + parts[1]));
    QVERIFY((program.At(parts[0].toDouble(), parts[1].toDouble()) - at).manhattanLength() <= 1);

    // The button serves one click: the next one draws, or is refused because no cluster is chosen.
    program.Click("lblNewCluster(1)");
    click(Qt::LeftButton);
    QCOMPARE(int(program.Shared.Clusters[1].BoundaryCount), 1);
    QCOMPARE(Read(program, "CenterCoords"), written);
    QTest::keyClick(&program.Form, Qt::Key_Escape);

    // Without a name the click is still served; Esc cancels.
    program.Answers.Messages.clear();
    program.Type("txtCenterFile", "");
    program.Click("cmdWriteCenterFile");
    click(Qt::LeftButton);
    QCOMPARE(program.Answers.Messages.takeLast(), "|Error: Need to specify Center File Name");
    QCOMPARE(program.Get("cmdWriteCenterFile")->property("Tag").toString(), "0");
    program.Click("cmdWriteCenterFile");
    QTest::keyClick(&program.Form, Qt::Key_Escape);
    QCOMPARE(program.Get("cmdWriteCenterFile")->property("Tag").toString(), "0");
  }

 private:
  static QWidget* Notes(const Program& program) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    program.Click("cmdClNote");
    QApplication::processEvents();
    return program.Get("frmClNote");
  }
  static void Remark(const QWidget* form, const QString& text) {
    Box<QPlainTextEdit>(form, "txtClRemarks")->setPlainText(text);
    Box<QPushButton>(form, "cmdAddRemarks")->click();
  }
  static QByteArray Read(const Program& program, const QString& name) {
    QFile file(program.Path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
};

static const bool added = AddFormTest<OutputFormsTest>();

#include "output_forms_test.moc"
