// The main loop of the program on the real forms: open, load, look, cut.

#include "form_tests.h"
#include "pallomir/clusters/classify.h"
#include "program.h"

using namespace pallomir;

class MainFormTest : public QObject {
  Q_OBJECT

 private slots:
  void StartsOnAChosenFile() {
    Program program;
    QVERIFY(program.Start());
    QCOMPARE(program.Answers.Asked.Title, "Select Tobrescan Output File");
    QCOMPARE(program.Text("txtCurDir"), program.Path("TT1"));
    QCOMPARE(program.Text("txtStartEvent"), "0");
    QCOMPARE(program.Text("txtEndEvent"), "999");
    QCOMPARE(program.Text("txtStartTime"), "1000000");
    QCOMPARE(program.Text("txtEndTime"), "1999000");
    QCOMPARE(program.Get<QListWidget>("lstY_Axis")->currentItem()->text(), "MPeak-2");
    QCOMPARE(program.Get<QListWidget>("lstX_Axis")->item(133)->text(), "Valley-32");
    QVERIFY(program.View()->isVisible());
    QVERIFY(program.Answers.Messages.isEmpty());
  }

  void RefusesWhatIsNotAParameterFile() {
    const QString refusal = "ERROR|File name must end in a .Ntt.parms extension. Exiting program.";
    Program cancelled;
    cancelled.Answers.FilesToOpen.clear();
    QVERIFY(!cancelled.Start());
    QCOMPARE(cancelled.Answers.Messages, QStringList{refusal});

    // A file that is a parameter file only by name is explained, and another one can be chosen.
    Program program;
    program.Write("TT1/picture.parms", "\x89PNG\r\n\x1a\n" + QByteArray(5000, 'x'));
    program.Write("TT1/empty.parms", "");
    program.Answers.FilesToOpen = {program.Path("TT1/picture.parms"), program.Path("TT1/empty.parms"),
                                   program.Path("TT1/missing.parms"), program.Path("TT1/TT1.Ntt.parms")};
    QVERIFY(program.Start());
    QCOMPARE(program.Answers.Messages.size(), 3);
    QVERIFY(program.Answers.Messages[0].startsWith("ERROR|picture.parms is not recognised"));
    QVERIFY(program.Answers.Messages[1].startsWith("ERROR|empty.parms is not recognised"));
    QVERIFY(program.Answers.Messages[2].startsWith("|") && program.Answers.Messages[2].endsWith("does not exist."));
  }

  void OpensTheFileOfTheCommandLine() {
    Program program;
    program.Write("TT1/picture.Ntt.parms", QByteArray(5000, 'x'));
    for (const QString& named : {QString("TT1/TT1.Ntt.parms"), QString("TT1/picture.Ntt.parms")}) {
      // If that file is refused the dialog opens, as without a command line.
      QStringList asked;
      QTimer answer;
      connect(&answer, &QTimer::timeout, [&] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
          asked << box->text();
          box->accept();
        } else if (auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
          asked << dialog->directory().dirName();
          // The folder is listed by another thread.
          dialog->findChild<QLineEdit*>()->setText(program.Path("TT1/TT1.Ntt.parms"));
          QMetaObject::invokeMethod(dialog, "accept");
        }
      });
      answer.start(50);
      Session session;
      DesktopDialogs dialogs(program.Path(named));
      Main_Form form(session, dialogs);
      QVERIFY(form.Form_Load());
      QCOMPARE(session.File.RecordCount, 1000);
      QCOMPARE(Box<>(&form, "txtCurDir")->text(), program.Path("TT1"));
      QCOMPARE(asked.size(), named.contains("picture") ? 2 : 0);
      if (asked.isEmpty()) continue;
      QVERIFY(asked[0].contains("picture.Ntt.parms is not recognised"));
      QCOMPARE(asked[1], "TT1");
    }
  }

  void CutsAClusterAndNarrowsItInAnotherProjection() {
    Program program;
    program.Load();
    auto* label = program.Get("lblChooseCluster(3)");
    QVERIFY(!label->isVisible());
    program.Click("lblNewCluster(3)");
    program.DrawPolygon({{100, 20}, {300, 20}, {300, 60}, {100, 60}});
    QVERIFY(label->isVisible());
    QCOMPARE(label->property("Tag").toString(), "1");
    const Boundary& first = program.Shared.Clusters[3].Boundaries[0];
    QCOMPARE(first.VertexCount, 4);
    QCOMPARE(PointsInCluster(program.Shared, 3), CountInside(program, {first}));
    QVERIFY(program.Pixels(QColor(0x80, 0x80, 0xFF)) > 0);

    program.Show(1, kPosY);
    program.DrawPolygon({{30, 0}, {40, 0}, {40, 50}, {30, 50}});
    QCOMPARE(program.Shared.Clusters[3].BoundaryCount, 2);
    const Boundary& second = program.Shared.Clusters[3].Boundaries[1];
    QCOMPARE(PointsInCluster(program.Shared, 3), CountInside(program, {first, second}));

    // Drawing where there is a boundary replaces it; with the axes swapped it adds one.
    program.DrawPolygon({{10, 0}, {40, 0}, {40, 50}, {10, 50}});
    QCOMPARE(program.Shared.Clusters[3].BoundaryCount, 2);
    program.Show(kPosY, 1);
    program.DrawPolygon({{0, 0}, {50, 0}, {50, 90}});
    QCOMPARE(program.Shared.Clusters[3].BoundaryCount, 3);
  }

  void IgnoresClicksWithoutMeaning() {
    Program program;
    program.Load();
    QTest::mousePress(program.Surface(), Qt::LeftButton);  // no cluster chosen
    QCOMPARE(program.Shared.Clusters[0].BoundaryCount, 0);
    program.Click("lblNewCluster(1)");
    QTest::mousePress(program.Surface(), Qt::RightButton);  // no polygon open
    QCOMPARE(program.Shared.Clusters[1].BoundaryCount, 0);
    for (int k = 0; k < 60; ++k) QTest::mousePress(program.Surface(), Qt::LeftButton, {}, QPoint(10 + k, 10));
    QCOMPARE(program.Shared.Clusters[1].Boundaries[0].VertexCount, 51);
    QVERIFY(program.View()->findChild<QLabel*>("message")->text().contains("51"));
    QTest::mousePress(program.Surface(), Qt::RightButton, {}, QPoint(200, 200));
    QCOMPARE(program.Shared.Clusters[1].Boundaries[0].VertexCount, 51);
    // Choosing another cluster ends an open polygon and adds nothing to that cluster.
    QTest::mousePress(program.Surface(), Qt::LeftButton, {}, QPoint(10, 10));
    program.Click("lblNewCluster(2)");
    QTest::mousePress(program.Surface(), Qt::RightButton, {}, QPoint(50, 50));
    QCOMPARE(program.Shared.Clusters[2].BoundaryCount, 0);
  }

  void ZoomsByDragging() {
    Program program;
    program.Load();
    program.Click("optZoom");
    const Session& session = program.Shared;
    // From the lower right to the upper left, as well as the other way.
    program.Drag(program.At(700, 20), program.At(300, 80));
    QVERIFY(std::abs(session.AxisMinimum[0] - 300) < 5 && std::abs(session.AxisMaximum[0] - 700) < 5);
    QVERIFY(std::abs(session.AxisMinimum[1] - 20) < 1 && std::abs(session.AxisMaximum[1] - 80) < 1);
    const float unchanged = session.AxisMaximum[0];
    program.Drag({100, 100}, {100, 100});
    QCOMPARE(session.AxisMaximum[0], unchanged);
    program.Click("cmdScaleDefaults");
    QCOMPARE(session.AxisMaximum[0], 999.0F);
    // On PosY, smaller values are higher up.
    program.Show(0, kPosY);
    program.Drag({50, 0}, {200, 50});
    QCOMPARE(session.AxisMinimum[kPosY], 0.0F);
    QVERIFY(session.AxisMaximum[kPosY] > 0 && session.AxisMaximum[kPosY] < 2);
  }

  void RangeBoxesLookUpTimesAndRecords() {
    Program program;
    program.Start();
    program.Type("txtStartTime", "1000500");
    program.DoubleClick("txtStartTime");
    QCOMPARE(program.Text("txtStartEvent"), "1");
    QCOMPARE(program.Text("txtStartTime"), "1001000");
    program.Type("txtEndTime", "1005999");
    QTest::keyClick(program.Get("txtEndTime"), Qt::Key_Return);
    QCOMPARE(program.Text("txtEndEvent"), "5");
    QCOMPARE(program.Text("txtEndTime"), "1005000");
    program.Type("txtEndEvent", "End");
    program.DoubleClick("txtEndEvent");
    QCOMPARE(program.Text("txtEndEvent"), "999");
    QCOMPARE(program.Text("txtEndTime"), "1999000");
    for (const char* text : {"START", "letters", ""}) {
      program.Type("txtStartEvent", text);
      program.DoubleClick("txtStartEvent");
      QCOMPARE(program.Text("txtStartEvent"), text);
    }
    QVERIFY(program.Answers.Messages.isEmpty());
    program.Type("txtStartTime", "9e9");
    program.DoubleClick("txtStartTime");
    QCOMPARE(program.Answers.Messages.takeLast(), "ERROR|Start time is out of file range");
    QCOMPARE(program.Text("txtStartTime"), "9e9");
    program.Type("txtEndTime", "9e9");
    program.DoubleClick("txtEndTime");
    QCOMPARE(program.Answers.Messages.takeLast(), "WARNING|Last spike in data file occurs before end time");
    QCOMPARE(program.Text("txtEndEvent"), "999");
  }

  void BadRangesLeaveTheLoadedPoints() {
    Program program;
    program.Load();
    const struct {
      const char *Start, *End, *Message;
    } cases[] = {
        {"5", "4", "ERROR|Start time must be <= to Stop time"},
        {"0", "0", "ERROR|Must Define Event IDs Using Define Epochs Command"},
        {"-1", "500", "ERROR|Records -1 to 500 cannot be loaded: the file holds records 0 to 999."},
        {"10", "14",
         "ERROR|Records 10 to 14 cannot be loaded: a range must hold at least 6 records, this one holds 5."},
        {"0", "1000", "ERROR|Records 0 to 1000 cannot be loaded: the file holds records 0 to 999."},
        {"1e99", "5", "|Start record 1E+99 is too large."},
    };
    for (const auto& bad : cases) {
      program.Type("txtStartEvent", bad.Start);
      program.Type("txtEndEvent", bad.End);
      program.Click("cmdLoadPoints");
      QCOMPARE(program.Answers.Messages, QStringList{bad.Message});
      program.Answers.Messages.clear();
      QCOMPARE(program.Shared.LoadEndRecord, 999);
      QCOMPARE(program.Shared.Points.Rows(), size_t{1000});
    }
    // A box without a number keeps the record that was loaded before.
    program.Type("txtStartEvent", "letters");
    program.Type("txtEndEvent", "99");
    program.Click("cmdLoadPoints");
    QCOMPARE(program.Shared.Points.Rows(), size_t{100});
  }

  void EndsIfTheVideoRateIsWrong() {
    Program program(1000, "25");
    program.Load();
    QCOMPARE(program.Answers.Messages,
             QStringList{"|Invalid Video Sampling Rate in Video Sampling File--ABort Program"});
    QVERIFY(!program.Form.isVisible());
  }

  void NothingIsDrawnBeforeLoading() {
    Program program;
    program.Start();
    program.Click("cmdRedraw");
    program.Click("cmdPointUp");
    QCOMPARE(program.Answers.Messages, QStringList(2, "|Need to Load Points first"));
    program.Click("chkWhiteBackground");
    program.View()->resize(500, 500);
    QApplication::processEvents();
    QCOMPARE(program.Answers.Messages.size(), 2);
  }

  void PointSizesGoUpAndDown() {
    Program program;
    program.Load();
    for (const float size : {1.0F, 2.0F, 3.0F}) {
      program.Click("cmdPointUp");
      QCOMPARE(program.Shared.PointSize, size);
    }
    for (const float size : {2.0F, 1.0F, 0.5F, 0.5F}) {
      program.Click("cmdPointDown");
      QCOMPARE(program.Shared.PointSize, size);
    }
  }

  void DisplayBoxesHideAndRecolour() {
    Program program;
    program.Load();
    program.Click("chkAxesOff");
    program.Click("chkDrawClustBounds");
    CutTwo(program);
    const QColor red(255, 0, 0), green(0, 255, 0), white(255, 255, 255);
    const int reds = program.Pixels(red), greens = program.Pixels(green), whites = program.Pixels(white);
    QVERIFY(reds > 0 && greens > 0);
    program.Click("chkDisableClusterDisplay(1)");
    QCOMPARE(program.Pixels(red), 0);
    program.Click("chkDisableClusterDisplay(1)");
    program.Click("chkDisplayOtherClustersAsZero(1)");
    QVERIFY(program.Get<QCheckBox>("chkDisplayClusterAsZero(2)")->isChecked());
    QVERIFY(!program.Get<QCheckBox>("chkDisplayClusterAsZero(1)")->isChecked());
    QCOMPARE(program.Pixels(green), 0);
    QCOMPARE(program.Pixels(white), whites + greens);
    program.Click("chkDisplayOtherClustersAsZero(1)");
    QCOMPARE(program.Pixels(green), greens);
    program.Click("chkWhiteBackground");
    QCOMPARE(program.Pixels(Qt::black), whites);
    QCOMPARE(program.Pixels(red), reds);
    program.Click("cmdClear");
    QCOMPARE(program.Pixels(red), 0);
  }

  void ANewerRedrawEndsAnOlderOne() {
    Program program(20000);
    program.Load();
    program.Type("txtDelay", "1");
    int nested = 0;
    QTimer::singleShot(0, [&] {
      ++nested;
      program.Show(1, 0);  // during the pauses of the redraw below
    });
    program.Click("cmdRedraw");
    QCOMPARE(nested, 1);
    QCOMPARE(program.Shared.XParameter, int16_t{1});
    QVERIFY(!program.View()->findChild<QLabel*>("count")->text().isEmpty());
  }

  void ClosingDuringARedrawOrALoadEndsTheProgram() {
    Program redrawing(20000);
    redrawing.Load();
    redrawing.Type("txtDelay", "1");
    QTimer::singleShot(0, &redrawing.Form, &QWidget::close);
    redrawing.Click("cmdRedraw");
    QVERIFY(!redrawing.Form.isVisible());

    // Closing the program in the middle of a load stops it; no points are left.
    Program loading(300000);
    loading.Start();
    QTimer::singleShot(0, &loading.Form, &QWidget::close);
    loading.Click("cmdLoadPoints");
    QVERIFY(!PointsLoaded(loading.Shared));
    QTRY_VERIFY(!loading.Form.isVisible());
  }

  void TheXListWaitsForTheYList() {
    Program program;
    program.Load();
    auto* list = program.Get<QListWidget>("lstX_Axis");
    QTest::keyClick(list, Qt::Key_Down);
    QApplication::processEvents();
    QCOMPARE(program.Shared.XParameter, int16_t{0});
    QTest::keyClick(program.Get("lstY_Axis"), Qt::Key_Down);
    QApplication::processEvents();
    QCOMPARE(program.Shared.XParameter, int16_t{1});
    QCOMPARE(program.Shared.YParameter, int16_t{2});
  }

  void AxesAreScaledAndSet() {
    Program program;
    program.Load();
    program.Type("txtLower", "0");
    program.Type("txtUpper", "100");
    program.Click("cmdscaleXaxis");
    program.Click("cmdScaleUp");
    QCOMPARE(program.Shared.AxisMinimum[0], 20.0F);
    QCOMPARE(program.Shared.AxisMaximum[0], 80.0F);
    program.Click("cmdScaleDown");
    QCOMPARE(program.Shared.AxisMinimum[0], 8.0F);
    QCOMPARE(program.Shared.AxisMaximum[0], 92.0F);
    program.Type("txtLower", "low");
    program.Type("txtUpper", "50");
    const float lower = program.Shared.AxisMinimum[1];
    program.Click("cmdscaleYaxis");
    QCOMPARE(program.Shared.AxisMinimum[1], lower);
    QCOMPARE(program.Shared.AxisMaximum[1], 50.0F);
    program.Form.findChild<QAction*>("mnuApplyXscaleToAllParameters")->trigger();
    QCOMPARE(program.Shared.AxisMaximum[133], 50.0F);
    QCOMPARE(program.Shared.AxisMaximum[134], 100.0F);
  }

  void EditsUndoesAndDescribesClusters() {
    Program program;
    program.Load();
    program.Click("cmdDeleteCluster");  // none is chosen: nothing happens
    CutTwo(program);
    const BoundaryTable cut = program.Shared.Clusters;
    auto* label = program.Get("lblChooseCluster(1)");
    QTest::keyClick(program.View(), Qt::Key_1);
    QCOMPARE(program.Shared.CurrentCluster, int16_t{1});
    program.Click("cmdClusterInfo");
    QVERIFY(program.Messages().contains("Cluster 1: MPeak-1 against MPeak-2, 4 vertices\nCluster 1: "));
    program.Click("cmdDeleteAllClusters");
    QVERIFY(!label->isVisible());
    QCOMPARE(program.Pixels(QColor(255, 0, 0)), 0);
    QTest::keyClick(program.View(), Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(program.Shared.Clusters == cut);
    QVERIFY(label->isVisible());
    program.Type("txtCopyCluster", "17");
    program.Click("cmdCopyCluster");
    QVERIFY(program.Shared.Clusters[17] == cut[1]);
    program.Click("cmdDeleteClusterBounds");
    QVERIFY(!label->isVisible());
    program.Click("cmdHideCL0");
    QCOMPARE(program.Get<QPushButton>("cmdHideCL0")->text(), "Show CL 0");
    QVERIFY(!program.Shared.Display[0]);
    // Escape cancels an open polygon.
    program.Click("lblNewCluster(5)");
    QTest::mousePress(program.Surface(), Qt::LeftButton, {}, QPoint(30, 30));
    QCOMPARE(program.Shared.Clusters[5].BoundaryCount, 1);
    QTest::keyClick(program.View(), Qt::Key_Escape);
    QCOMPARE(program.Shared.Clusters[5].BoundaryCount, 0);
    QVERIFY(!program.Shared.ClusterDefined[5]);
  }

  void SwitchesPagesOfClusters() {
    Program program;
    program.Load();
    auto* button = program.Get<QPushButton>("cmdToggleClusters");
    QCOMPARE(button->text(), "CL 16-30");
    button->click();
    QCOMPARE(button->text(), "CL 1- 15");
    QVERIFY(program.Get("fraCL16to30")->isVisible() && !program.Get("fraCL1to15")->isVisible());
    button->click();
    QCOMPARE(button->text(), "CL16-30");
    // Two digits typed together are one number, whose page is shown.
    QTest::keyClicks(program.View(), "23");
    QCOMPARE(program.Shared.CurrentCluster, int16_t{23});
    QVERIFY(program.Get("fraCL16to30")->isVisible());
  }

  void OverlapBlinksUntilItIsStopped() {
    Program program;
    program.Load();
    program.Click("chkAxesOff");
    program.Click("cmdShowOverlap");
    QCOMPARE(program.Answers.Messages, QStringList{"|There are no overlapping clusters"});
    CutTwo(program);
    program.Type("txtCopyCluster", "9");
    program.Click("cmdCopyCluster");
    auto* button = program.Get<QPushButton>("cmdShowOverlap");
    auto* timer = program.Get<QTimer>("tmrDelayTimer");
    const QColor white(255, 255, 255);
    const int before = program.Pixels(white);
    button->click();
    QCOMPARE(button->text(), "Stop Overlap");
    QVERIFY(timer->isActive() && timer->interval() == 500);
    const int lit = program.Pixels(white);
    QVERIFY(lit > before);
    QTRY_VERIFY(program.Pixels(white) < lit);  // black half a second later
    QTRY_COMPARE(program.Pixels(white), lit);
    // It blinks over any other picture too; in another projection it starts again.
    program.Click("cmdScaleDown");
    program.Click("cmdDeleteAllClusters");
    program.Click("cmdUndo");
    program.Click("cmdClear");
    QCOMPARE(button->text(), "Stop Overlap");
    QTRY_VERIFY(program.Pixels(white) > 0);
    QTRY_VERIFY(program.Pixels(white) == 0);
    program.Show(1, 0);
    QCOMPARE(button->text(), "Stop Overlap");
    QVERIFY(timer->isActive());
    button->click();
    QCOMPARE(button->text(), "Show Overlap");
    QVERIFY(!timer->isActive());
    // If no overlap is left when the next projection is shown, the user is told and the blinking ends.
    button->click();
    program.Click("cmdDeleteAllClusters");
    program.Show(0, 1);
    QCOMPARE(program.Answers.Messages.takeLast(), "|There are no overlapping clusters");
    QCOMPARE(button->text(), "Show Overlap");
  }

  void KeepsACutInFiles() {
    Program program;
    program.Start();
    program.Click("cmdReadCBFile");
    QCOMPARE(program.Answers.Messages.takeLast(), "|Need to Load Points first");
    program.Click("cmdLoadPoints");
    program.Click("cmdReadCBFile");
    QCOMPARE(program.Answers.Messages.takeLast(), "ERROR|CBFile does not exist");
    CutTwo(program);
    const int64_t first = PointsInCluster(program.Shared, 1), second = PointsInCluster(program.Shared, 2);
    QTest::keyClick(program.Get("txtCBFileWrite"), Qt::Key_Return);
    QVERIFY(QFile::exists(program.Path("TT1/cbfile.m1.txt")));
    QVERIFY(program.Messages().endsWith("cbfile.m1.txt"));
    program.Click("cmdDeleteAllClusters");
    QTest::keyClick(program.Get("txtCBFileRead"), Qt::Key_Return);
    QCOMPARE(PointsInCluster(program.Shared, 1), first);
    program.Click("cmdDeleteAllClusters");
    program.Form.findChild<QAction*>("mnuReadSelectedClusters")->trigger();
    auto* choose = program.Get<QDialog>("ChooseClusterForm");
    QVERIFY(choose->isVisible());
    choose->findChild<QCheckBox*>("chkCluster(2)")->click();
    choose->findChild<QPushButton*>("cmdGo")->click();
    QVERIFY(!choose->isVisible());
    QCOMPARE(PointsInCluster(program.Shared, 1), int64_t{0});
    QCOMPARE(PointsInCluster(program.Shared, 2), second);
    // A broken file is reported, with the line; Undo restores the cut.
    QFile good(program.Path("TT1/cbfile.m1.txt"));
    QVERIFY(good.open(QIODevice::ReadOnly));
    program.Write("TT1/broken.txt", good.readAll().chopped(30) + "x");
    program.Type("txtCBFileRead", "broken");
    program.Click("cmdReadCBFile");
    QVERIFY(program.Answers.Messages.takeLast().startsWith("ERROR|broken.txt, line "));
    program.Click("cmdUndo");
    QCOMPARE(PointsInCluster(program.Shared, 2), second);
  }

  void ExitWritesTheExitCopyAndTheScales() {
    Program program;
    program.Load();
    CutTwo(program);
    // If it cannot be written the user is asked, and can stay.
    QDir(program.Path("TT1")).mkdir("cbfile.exit.txt");
    program.Answers.Agree = false;
    QVERIFY(!program.Form.close());
    QVERIFY(program.Form.isVisible());
    QVERIFY(program.Answers.Questions.takeLast().contains("cbfile.exit.txt is a folder"));
    QDir(program.Path("TT1")).rmdir("cbfile.exit.txt");
    QVERIFY(program.Form.close());
    QVERIFY(program.Answers.Questions.isEmpty());
    QVERIFY(QFile::exists(program.Path("TT1/cbfile.exit.txt")));
    QVERIFY(QFile::exists(program.Path("TT1/AxesScaleFile")));

    program.Answers.FilesToOpen = {program.Path("TT1/TT1.Ntt.parms")};
    Session session;
    Main_Form again(session, program.Answers);
    QVERIFY(again.Form_Load());
    again.findChild<QPushButton*>("cmdLoadPoints")->click();
    again.findChild<QLineEdit*>("txtCBFileRead")->setText("cbfile.exit");
    again.findChild<QPushButton*>("cmdReadCBFile")->click();
    QCOMPARE(PointsInCluster(session, 2), PointsInCluster(program.Shared, 2));
  }

  void DefaultsAreRestoredAtTheNextStart() {
    Program program;
    program.Start();
    program.Click("cmdSaveDefaults");  // cancelled
    QCOMPARE(program.Answers.Asked.Title, "Save Defaults File");
    QVERIFY(!QFile::exists(program.Path("TT1/Defaults")));
    program.Type("txtPosFile", "Pos2.p");
    program.Type("txtCBFileRead", "cbfile.m7");
    program.Answers.FilesToOpen = {program.Path("TT1/Defaults")};
    program.Click("cmdSaveDefaults");
    program.Answers.FilesToOpen = {program.Path("TT1/TT1.Ntt.parms")};
    Session session;
    Main_Form again(session, program.Answers);
    QVERIFY(again.Form_Load());
    QCOMPARE(again.findChild<QLineEdit*>("txtPosFile")->text(), "Pos2.p");
    QCOMPARE(again.findChild<QLineEdit*>("txtCBFileRead")->text(), "cbfile.m7");
    QCOMPARE(again.findChild<QLineEdit*>("txtCBFileWrite")->text(), "cbfile.m1");
  }

  void AxisScalesAreRestored() {
    Program program;
    program.Load();
    program.Click("cmdRestoreAxes");
    QVERIFY(program.Answers.Messages.takeLast().endsWith("\\AxesScaleFile is not present"));
    program.Form.findChild<QAction*>("mnuWriteAxesScaleFile")->trigger();
    program.Click("cmdScaleUp");
    program.Click("cmdRestoreAxes");
    QCOMPARE(program.Shared.AxisMaximum[0], 999.0F);
  }

  void WindowsFitASmallScreen() {
    // The client areas left by frames and a task bar on screens of 1024 x 768 and 1366 x 768.
    Program program;
    program.Load();
    program.Form.resize(560, 690);
    QApplication::processEvents();
    const auto* scroll = qobject_cast<QScrollArea*>(program.Form.centralWidget());
    QVERIFY(!scroll->verticalScrollBar()->isVisible() && !scroll->horizontalScrollBar()->isVisible());
    // Whatever the texts below the controls and the picture, the windows keep their width.
    const int wide = program.Form.minimumSizeHint().width(), narrow = program.View()->minimumSizeHint().width();
    program.Form.statusBar()->findChild<QLabel*>()->setText(QString("what to do ").repeated(30));
    program.View()->resize(400, 500);
    program.Type("txtUpper", "1e30");
    program.Click("cmdscaleXaxis");
    program.Type("txtDownsampleFraction", "half");
    program.Click("chkDownsample");
    QTest::mouseMove(program.Surface(), QPoint(33, 55));
    QApplication::processEvents();
    QCOMPARE(program.Form.minimumSizeHint().width(), wide);
    QCOMPARE(program.View()->minimumSizeHint().width(), narrow);
    QCOMPARE(program.View()->width(), 400);
    // On an even lower screen the controls scroll; a higher one gives more room to the messages.
    program.Form.resize(560, 500);
    QApplication::processEvents();
    QVERIFY(scroll->verticalScrollBar()->isVisible());
    program.Form.resize(560, 800);
    QApplication::processEvents();
    auto* messages = program.Get("txtMessages");
    const int low = messages->height();
    program.Form.resize(560, 1200);
    QApplication::processEvents();
    QCOMPARE(messages->height(), low + 400);
  }

  void WindowsNameTheTetrode() {
    Program program;
    program.Start();
    QCOMPARE(program.Form.windowTitle(), QString("Cluster cutting controls — TT1"));
    QCOMPARE(program.View()->windowTitle(), QString("Projections — TT1"));
    QVERIFY(program.Get("txtCurDir")->toolTip().contains(program.Path("TT1")));
  }

  void EveryControlCanBeReachedAndSaysWhatItIs() {
    Program program;
    program.Load();
    for (QWidget* control :
         program.Form.findChildren<QWidget*>(QRegularExpression("^(cmd|txt|chk|opt|lst|cbo|lblC)"))) {
      const QByteArray name = control->objectName().toUtf8();
      QVERIFY2(!control->accessibleName().isEmpty(), name);
      QVERIFY2(!control->toolTip().isEmpty(), name);
      QVERIFY2(control->focusPolicy() & Qt::TabFocus, name);
    }
  }

 private:
  /// Cuts clusters 1 and 2 in the first projection, side by side.
  static void CutTwo(const Program& program) {
    for (const int c : {1, 2}) {
      program.Click(QString("lblNewCluster(%1)").arg(c));
      const double left = c * 200;
      program.DrawPolygon({{left, 10}, {left + 150, 10}, {left + 150, 90}, {left, 90}});
    }
  }

  static int64_t CountInside(const Program& program, std::initializer_list<Boundary> boundaries) {
    int64_t count = 0;
    for (size_t i = 0; i < program.Shared.Points.Rows(); ++i) {
      const PointRecord record = program.Shared.Points.Record(i);
      count += std::all_of(boundaries.begin(), boundaries.end(), [&](const Boundary& boundary) {
        QPolygonF polygon;
        for (int k = 0; k < boundary.VertexCount; ++k)
          polygon << QPointF(boundary.Vertices[k].X, boundary.Vertices[k].Y);
        return polygon.containsPoint({record.Parameters[boundary.XParameter], record.Parameters[boundary.YParameter]},
                                     Qt::OddEvenFill);
      });
    }
    return count;
  }
};

static const bool added = AddFormTest<MainFormTest>();

#include "main_form_test.moc"
