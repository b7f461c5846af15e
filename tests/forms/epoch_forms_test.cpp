// Choosing time: the epoch table, the list of epochs, several epochs at once.

#include "form_tests.h"
#include "program.h"
#include "support/events_files.h"
#include "support/parameter_files.h"

using namespace pallomir;

class EpochFormsTest : public QObject {
  Q_OBJECT

 private slots:
  void EpochsAreMadeFromTheEventsFile() {
    Program program;
    program.Start();
    program.Write("Events.Nev", QByteArray::fromStdString(AcquisitionHeader() + EventRecord(1'100'000, "run") +
                                                          EventRecord(1'200'000, "TTL Input on board 0") +
                                                          EventRecord(1'300'500, "rest")));
    const QWidget* form = Epochs(program);
    program.Answers.FilesToOpen = {program.Path("Events.Nev")};
    Box<QCheckBox>(form, "chkFilter")->setChecked(true);
    Box<QPushButton>(form, "cmdLoadEventsFile")->click();
    auto* listing = Box<QPlainTextEdit>(form, "txtEventsFile");
    QCOMPARE(listing->toPlainText(), "1100000  run\n1300500  rest\n0  \n");

    // A double click selects a timestamp, a click in a box enters it; with nothing selected the box is emptied.
    Box(form, "txtEpochLabel(0)")->setText("run");
    for (const auto& [line, box] : {std::pair(0, "txtStart(0)"), std::pair(1, "txtEnd(0)")}) {
      const QTextBlock block = listing->document()->findBlockByNumber(line);
      const QPoint at = listing->cursorRect(QTextCursor(block)).center() + QPoint(60, 0);
      QTest::mouseDClick(listing->viewport(), Qt::LeftButton, {}, at);
      QTest::mouseClick(Box(form, box), Qt::LeftButton);
    }
    QCOMPARE(Box(form, "txtStart(0)")->text() + " " + Box(form, "txtEnd(0)")->text(), "1100000 1300500");
    listing->moveCursor(QTextCursor::Start);
    QTest::mouseClick(Box(form, "txtEnd(0)"), Qt::LeftButton);
    QCOMPARE(Box(form, "txtEnd(0)")->text(), "");
    Box(form, "txtEnd(0)")->undo();
    QCOMPARE(Box(form, "txtEnd(0)")->text(), "1300500");

    Box<QPushButton>(form, "cmdFindEventNumbers")->click();
    QCOMPARE(program.Answers.Messages, QStringList{"|Done Finding Event IDs"});
    QVERIFY(Box<QPlainTextEdit>(form, "txtEventIDProgress")
                ->toPlainText()
                .startsWith("run: Timestamps 1100000, 1300000 Event IDs 100, 300\n"));
    Box<QPushButton>(form, "cmdSave")->click();
    Choose(program, 0);
    QCOMPARE(program.Get<QComboBox>("cboEpochs")->itemText(0), "run: 1100000 1300500");
    QCOMPARE(program.Text("txtStartEvent") + " " + program.Text("txtEndEvent"), "100 300");
    QCOMPARE(program.Text("txtStartTime") + " " + program.Text("txtEndTime"), "1100000 1300500");
    program.Click("cmdLoadPoints");
    QCOMPARE(program.Shared.Points.Rows(), size_t{201});
  }

  void TheTableIsAppliedOnlyByDone() {
    Program program;
    program.Start();
    const QWidget* form = Epochs(program);
    Box(form, "txtEpochLabel(3)")->setText("rest");
    Box(form, "txtStart(3)")->setText("1500000");
    Box<QPushButton>(form, "cmdSave")->click();
    auto* list = program.Get<QComboBox>("cboEpochs");
    QCOMPARE(list->count(), 1);
    QCOMPARE(list->itemText(0), "rest: 1500000 ");

    // After reopening it is in row 0.
    form = Epochs(program);
    QCOMPARE(Box(form, "txtEpochLabel(0)")->text() + Box(form, "txtStart(0)")->text(), "rest1500000");
    QCOMPARE(Box(form, "txtEpochLabel(3)")->text(), "");
    Box<QPushButton>(form, "cmdClear")->click();
    QCOMPARE(Box(form, "txtStart(0)")->text(), "");
    Box<QPushButton>(form, "cmdCancel")->click();
    QCOMPARE(list->count(), 1);

    // The close box asks before it discards changes.
    form = Epochs(program);
    Box(form, "txtEnd(0)")->setText("7");
    program.Answers.Agree = false;
    QVERIFY(!const_cast<QWidget*>(form)->close());
    program.Answers.Agree = true;
    QVERIFY(const_cast<QWidget*>(form)->close());
    QCOMPARE(program.Answers.Questions.size(), 2);

    // More epochs than rows: nothing opens, nothing is lost.
    for (int i = 0; i < 30; ++i) list->addItem("more: 1 2");
    program.Click("cmdDefineEpochs");
    QCOMPARE(program.Answers.Messages, QStringList{"ERROR|There are 31 epochs, but room for only 30."});
  }

  void BothHalvesOfTheTableAreShown() {
    Program program;
    program.Start();
    for (const QWidget* form : {Epochs(program), Several(program)}) {
      auto* next = Box<QPushButton>(form, "cmdNext");
      const bool epochs = form->objectName() == "TimeEpochs";
      for (const bool first : {true, false, true}) {
        QCOMPARE(next->property("Tag").toString(), first ? "First set" : "Second set");
        QCOMPARE(next->toolTip(), first ? "Display Epochs 15-29" : "Display Epochs 0-14");
        QCOMPARE(next->text(), epochs ? QString(first ? ">" : "<") : next->toolTip());
        for (const char* name : {"txtEpochLabel(%1)", "txtStart(%1)", "txtEnd(%1)"})
          for (int row = 0; row < 30; ++row)
            QCOMPARE(Box(form, QString(name).arg(row))->isVisible(), (row < 15) == first);
        next->click();
      }
    }
  }

  void ATextThatIsNotANumberIsNamed() {
    Program program;
    program.Start();
    const QWidget* form = Epochs(program);
    for (const char* name : {"txtEpochLabel(17)", "txtStart(17)", "txtEnd(17)"}) Box(form, name)->setText("noon");
    Box<QPushButton>(form, "cmdFindEventNumbers")->click();
    QCOMPARE(program.Answers.Messages, QStringList{"|Epoch 17: the start \"noon\" is not a number."});
    QVERIFY(Box(form, "txtStart(17)")->isEnabled());
  }

  void SeveralEpochsAreLoadedAndShownAlone() {
    Program program(1000);
    program.Load();
    SetEpochs(program, {{100, 200}, {150, 300}, {500, 600}, {50, 400}});
    const QWidget* form = Several(program);
    QVERIFY(!program.Get("cmdLoadPoints")->isEnabled());
    const auto tick = [&](int row) { Box<QCheckBox>(form, QString("chkSelectEpoch(%1)").arg(row))->click(); };
    Box<QPushButton>(form, "cmdLoad")->click();
    QCOMPARE(program.Answers.Messages.takeLast(), "ERROR|Must Define Event IDs Using Define Epochs Command");
    tick(0);
    tick(1);
    QCOMPARE(program.Answers.Messages.takeLast(), "|ERROR: Epoch overlaps with previously selected epoch");
    QVERIFY(!Box<QCheckBox>(form, "chkSelectEpoch(1)")->isChecked());
    tick(4);
    QCOMPARE(program.Answers.Messages.takeLast(), "|ERROR: Cannot choose an epoch with no times defined");
    tick(2);
    Box<QPushButton>(form, "cmdLoad")->click();
    QVERIFY(program.Answers.Messages.isEmpty());
    QCOMPARE(program.Shared.LoadStartRecord, 100);
    QCOMPARE(program.Shared.LoadEndRecord, 600);
    QCOMPARE(program.Text("txtStartEvent") + " " + program.Text("txtEndEvent"), "100 600");
    QCOMPARE(program.Text("txtStartTime") + " " + program.Text("txtEndTime"), "s100 e600");
    QCOMPARE(Shown(program), 202);

    // Ticks take effect at the next redraw; a row that encloses another is allowed.
    tick(2);
    QCOMPARE(Shown(program), 202);
    program.Click("cmdRedraw");
    QCOMPARE(Shown(program), 101);
    Box<QCheckBox>(form, "chkDisplayInterEpochPoints")->click();
    program.Click("cmdRedraw");
    QCOMPARE(Shown(program), 501);
    tick(3);
    QVERIFY(program.Answers.Messages.isEmpty());

    const_cast<QWidget*>(form)->close();
    QVERIFY(program.Get("cmdLoadPoints")->isEnabled());
    QVERIFY(!program.Shared.MultipleEpochs);
    QCOMPARE(program.Shared.LoadEndRecord, 0);
    for (const char* box : {"txtStartEvent", "txtEndEvent", "txtStartTime", "txtEndTime"})
      QCOMPARE(program.Text(box), "");
  }

  void AfterClosingTheFormAllCommandsSeeOneRow() {
    Program program(1000);
    program.Load();
    program.Click("lblNewCluster(3)");
    program.DrawPolygon({{50, 5}, {950, 5}, {950, 95}, {50, 95}});
    SetEpochs(program, {{100, 600}});
    QWidget* form = const_cast<QWidget*>(Several(program));
    Box<QCheckBox>(form, "chkSelectEpoch(0)")->click();
    Box<QPushButton>(form, "cmdLoad")->click();
    QCOMPARE(program.Shared.Points.Rows(), size_t{501});
    form->close();
    program.Type("txtStartTime", "0");
    program.Type("txtEndTime", "9999999");
    program.Get<QPlainTextEdit>("txtMessages")->clear();
    program.Click("cmdWriteClustFile");
    QVERIFY(program.Answers.Messages.isEmpty());
    // Record 100 is the first of the range; its MPeak-2 is 0, outside the cluster.
    QCOMPARE(program.Messages(),
             "Wrote Cluster 3: 0 points\nWrote Cluster 0 (Undefined points): 1 points\nDone Writing CLFiles");
    QFile written(program.Path("TT1/Undefined_cl-maze1"));
    QVERIFY(written.open(QIODevice::ReadOnly));
    const QByteArray lines = written.readAll();
    QVERIFY(lines.contains("\r\n9999999\r\n100,100,0,") && lines.count("\r\n100,") == 1 && !lines.contains("\r\n101,"));
    QVERIFY(Status(program).contains("only its first spike was written"));
    // All commands that look at points are refused.
    program.Click("cmdShowWaveforms");
    Box<QPushButton>(program.Get("Waveforms"), "cmdForward")->click();
    program.Click("cmdRedraw");
    QCOMPARE(program.Answers.Messages, QStringList(2, "|Need to Load Points first"));
    program.Answers.Messages.clear();
    program.Click("cmdClusterInfo");
    QVERIFY(program.Messages().endsWith("Cluster 3: 0 points"));
  }

  void ChoosingUsesTheListsPositions() {
    Program program;
    program.Load();
    SetEpochs(program, {{100, 200}, {300, 400}});
    auto* list = program.Get<QComboBox>("cboEpochs");
    Choose(program, 1);
    QCOMPARE(program.Text("txtStartEvent"), "300");
    program.Type("txtStartEvent", "7");
    list->addItems({": 1", ": 12"});
    Choose(program, 2);  // shorter than four characters
    QCOMPARE(program.Text("txtStartEvent"), "7");
    Choose(program, 3);
    QCOMPARE(program.Text("txtStartEvent") + " " + program.Text("txtStartTime"), "0 12");
  }

  void ChoosingAnEpochShowsNoMessageBox() {
    Program program;
    program.Load();
    SetEpochs(program, {{100, 5000}});
    Choose(program, 0);
    QCOMPARE(program.Text("txtEndEvent"), "5000");
    QVERIFY(Status(program).contains("Record 5000 is not in TT1.Ntt.parms"));
    QFile::remove(program.Path("TT1/TT1.Ntt.parms"));
    Choose(program, 0);
    for (int i = 0; i < 30; ++i) program.Get<QComboBox>("cboEpochs")->addItem("more: 1 2");
    Choose(program, 30);
    QVERIFY(Status(program).contains("Epoch 30 has no records"));
    QVERIFY(program.Answers.Messages.isEmpty());
  }

  void ExitDuringASearchEndsItAndThenTheProgram() {
    for (const bool closeBox : {false, true}) {
      Program program(1000);
      program.Load();
      const QWidget* form = Epochs(program);
      for (const char* name : {"txtEpochLabel(%1)", "txtStart(%1)", "txtEnd(%1)"})
        for (int row = 0; row < 30; ++row) Box(form, QString(name).arg(row))->setText("1500000");
      bool pressed = false;
      QTimer::singleShot(0, &program.Form, [&] {
        pressed = true;
        if (closeBox)
          program.Form.close();
        else
          program.Click("cmdExit");
        QVERIFY(program.Form.isVisible());
      });
      Box<QPushButton>(form, "cmdFindEventNumbers")->click();
      QVERIFY(pressed);
      QVERIFY2(program.Answers.Messages.isEmpty(), "it did not run to its end");
      QTRY_VERIFY(!program.Form.isVisible());
      QVERIFY(QFile::exists(program.Path("TT1/cbfile.exit.txt")));
    }
  }

  void EpochsAreFilledFromTheListedEvents() {
    Program program;
    program.Start();
    const QWidget* form = Epochs(program);
    auto* fill = Box<QPushButton>(form, "cmdFillFromEvents");
    fill->click();
    QCOMPARE(program.Answers.Messages.takeLast(), QString("|Load an events file first."));
    const std::string events = AcquisitionHeader() + EventRecord(1'000'000, "Starting Recording") +
                               EventRecord(1'100'000, "maze1 start") + EventRecord(1'200'000, "maze1 end") +
                               EventRecord(1'900'000, "Stopping Recording");
    program.Write("Events.Nev", QByteArray::fromStdString(events));
    program.Answers.FilesToOpen = {program.Path("Events.Nev")};
    Box<QPushButton>(form, "cmdLoadEventsFile")->click();
    Box(form, "txtEpochLabel(0)")->setText("mine");
    fill->click();
    QCOMPARE(Box<QLabel>(form, "hint")->text(), QString("2 epochs were filled in."));
    Box(form, "txtStart(1)")->undo();  // every box can take it back
    QCOMPARE(Box(form, "txtStart(1)")->text(), QString());
    Box(form, "txtStart(1)")->redo();
    Box<QPushButton>(form, "cmdSave")->click();
    QCOMPARE(program.Get<QComboBox>("cboEpochs")->count(), 3);
    QCOMPARE(program.Get<QComboBox>("cboEpochs")->itemText(0), QString("mine:  "));
    QCOMPARE(program.Get<QComboBox>("cboEpochs")->itemText(1), QString("Recording: 1000000 1900000"));
    QCOMPARE(program.Get<QComboBox>("cboEpochs")->itemText(2), QString("maze1: 1100000 1200000"));
  }

  void ALongListingShowsProgressAndCanBeStopped() {
    Program program;
    program.Start();
    std::string events = AcquisitionHeader();
    for (uint64_t n = 0; n < 20'000; ++n) events += EventRecord(n, "lap");
    program.Write("Events.Nev", QByteArray::fromStdString(events));
    const QWidget* form = Epochs(program);
    auto* listing = Box<QPlainTextEdit>(form, "txtEventsFile");
    auto* hint = Box<QLabel>(form, "hint");
    const auto load = [&] {
      program.Answers.FilesToOpen = {program.Path("Events.Nev")};
      Box<QPushButton>(form, "cmdLoadEventsFile")->click();
    };
    load();
    QVERIFY(hint->text().startsWith("20001 lines from Events.Nev."));
    QCOMPARE(listing->document()->findBlockByNumber(19'999).text(), "19999  lap");
    QCOMPARE(listing->document()->findBlockByNumber(20'000).text(), "0  ");
    QVERIFY(listing->textCursor().atStart());
    // When stopped, it keeps whole lines.
    connect(listing, &QPlainTextEdit::blockCountChanged, listing, [&](int blocks) {
      if (blocks > 1)
        QTimer::singleShot(0, listing, [&] { QTest::keyClick(const_cast<QWidget*>(form), Qt::Key_Escape); });
    });
    load();
    QVERIFY(form->isVisible());
    QVERIFY(hint->text().startsWith("Stopped; "));
    QVERIFY(listing->blockCount() > 1000 && listing->blockCount() < 20'002);
    QCOMPARE(listing->document()->lastBlock().text(), "");
    QCOMPARE(hint->text(), QString("Stopped; %1 lines are listed.").arg(listing->blockCount() - 1));
  }

 private:
  static const QWidget* Epochs(const Program& program) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    program.Click("cmdDefineEpochs");
    QApplication::processEvents();
    return program.Get("TimeEpochs");
  }
  static const QWidget* Several(const Program& program) {
    program.Form.findChild<QAction*>("mnuLoadMultipleEpochs")->trigger();
    QApplication::processEvents();
    return program.Get("frmLoadMultipleEpochs");
  }

  static void SetEpochs(Program& program, const std::vector<std::pair<int, int>>& records) {
    auto* list = program.Get<QComboBox>("cboEpochs");
    for (size_t k = 0; k < records.size(); ++k) {
      const auto [start, end] = records[k];
      list->addItem(QString("part: s%1 e%2").arg(start).arg(end));
      program.Shared.EpochStartRecord[k] = start;
      program.Shared.EpochEndRecord[k] = end;
    }
  }
  static QString Status(const Program& program) { return program.Form.statusBar()->findChild<QLabel*>()->text(); }
  static void Choose(const Program& program, int item) {
    auto* list = program.Get<QComboBox>("cboEpochs");
    list->setCurrentIndex(item);
    emit list->activated(item);
  }

  /// The number of points that the view says it shows.
  static int Shown(const Program& program) {
    QApplication::processEvents();
    const QString count = program.View()->findChild<QLabel*>("count")->text();
    return count.section(' ', 0, 0).toInt();
  }
};

static const bool added = AddFormTest<EpochFormsTest>();

#include "epoch_forms_test.moc"
