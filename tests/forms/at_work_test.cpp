// The program while it is busy, while it exits, and when a command cannot run.

#include <filesystem>

#include "form_tests.h"
#include "pallomir/clusters/classify.h"
#include "program.h"

using namespace pallomir;

class AtWorkTest : public QObject {
  Q_OBJECT

 private slots:
  void ClosingDuringALoadSavesTheCut() {
    Program program(300000);
    program.Load();
    program.Click("lblNewCluster(1)");
    program.DrawPolygon({{100, 10}, {900, 10}, {500, 80}});
    QTimer::singleShot(0, &program.Form, &QWidget::close);
    program.Click("cmdLoadPoints");
    QTRY_VERIFY(!program.Form.isVisible());
    QFile saved(program.Path("TT1/cbfile.exit.txt"));
    QVERIFY(saved.open(QIODevice::ReadOnly) && saved.readAll().contains("MPeak-1"));
  }

  void InputWhileAtWorkChangesNothing() {
    Program program(300000);
    program.Start();
    bool pressed = false;
    QTimer::singleShot(0, [&] {
      pressed = true;
      for (const char* name : {"cmdRandomX", "chkWhiteBackground", "chkAxesOff"})
        QTest::mouseClick(program.Get(name), Qt::LeftButton);
      QTest::keyClick(program.Get("txtLower"), Qt::Key_7);
      program.Click("cmdLoadPoints");  // by a menu or a timer, not the mouse
    });
    program.Click("cmdLoadPoints");
    QVERIFY(pressed);
    QCOMPARE(program.Shared.Points.Rows(), size_t{300000});
    QVERIFY(!program.Get<QAbstractButton>("cmdRandomX")->isChecked() && !program.Shared.RandomX);
    QVERIFY(!program.Get<QCheckBox>("chkWhiteBackground")->isChecked() && !program.Shared.WhiteBackground);
    QVERIFY(!program.Get<QCheckBox>("chkAxesOff")->isChecked());
    QCOMPARE(program.Text("txtLower"), "");
    // Input is accepted again afterwards.
    QTest::mouseClick(program.Get("cmdRandomX"), Qt::LeftButton);
    QVERIFY(program.Shared.RandomX);
  }

  void EscapeStopsALoadFromAnyWindow() {
    for (const bool fromProjection : {false, true}) {
      Program program(300000);
      program.Start();
      QTimer::singleShot(
          0, [&] { QTest::keyClick(fromProjection ? program.Surface() : program.Get("txtLower"), Qt::Key_Escape); });
      program.Click("cmdLoadPoints");
      QVERIFY(!PointsLoaded(program.Shared));
      QCOMPARE(Status(program), "Stopped; nothing was changed.");
    }
  }

  void AStoppedLoadRestoresThePointsLoadedBefore() {
    for (const bool again : {false, true}) {
      Program program(300000);
      program.Type("txtDelay", "100000");
      program.Load();
      program.Click("lblNewCluster(1)");
      program.DrawPolygon({{100, 10}, {250000, 10}, {500, 80}});
      const int64_t members = PointsInCluster(program.Shared, 1);
      QVERIFY(members > 0);
      QTimer timer;
      connect(&timer, &QTimer::timeout, [&] { QTest::keyClick(program.Get("txtLower"), Qt::Key_Escape); });
      timer.setSingleShot(!again);  // the second Esc stops the restoring of the earlier points
      timer.start(0);
      program.Click("cmdLoadPoints");
      timer.stop();
      QCOMPARE(PointsLoaded(program.Shared), !again);
      QCOMPARE(program.Shared.Points.Rows(), size_t(again ? 0 : 300000));
      QCOMPARE(PointsInCluster(program.Shared, 1), again ? 0 : members);
      QCOMPARE(Status(program), again ? "Stopped; no points are loaded now. The boundaries are unchanged."
                                      : "Stopped; nothing was changed.");
      if (again) QVERIFY(program.Messages().contains("could not be read again (this was stopped as well)"));
      program.Click("cmdLoadPoints");
      QCOMPARE(PointsInCluster(program.Shared, 1), members);
    }
  }

  void AFolderOfAnyNameOpens() {
    for (const char* name : {"a\\b", "caf\xE9"}) {
      Program program;
      program.Start();
      QTemporaryDir parent;
      const std::filesystem::path folder = std::filesystem::path(parent.path().toStdString()) / name;
      std::filesystem::create_directory(folder);
      std::filesystem::copy(program.Path("TT1/TT1.Ntt.parms").toStdString(), folder / "TT1.Ntt.parms");
      std::filesystem::copy(program.Path("VideoSampling").toStdString(), folder / ".." / "VideoSampling");
      Session session;
      ScriptedDialogs dialogs;
      dialogs.FilesToOpen = {QFile::decodeName(folder.c_str()) + "/TT1.Ntt.parms"};
      {
        Main_Form form(session, dialogs);
        QVERIFY(form.Form_Load());
        form.findChild<QAbstractButton*>("cmdLoadPoints")->click();
        QCOMPARE(session.Points.Rows(), size_t{1000});
        QCOMPARE(dialogs.Messages, QStringList());
        form.close();
      }
      QVERIFY(std::filesystem::exists(folder / "cbfile.exit.txt"));
      QDir::setCurrent(program.Path("TT1"));
    }
  }

  void EscapeStopsAChangeOfTheCut() {
    Program program(300000);
    program.Load();
    program.Click("lblNewCluster(1)");
    for (const int top : {90, 80}) program.DrawPolygon({{100, 10}, {250000, 10}, {250000, 1.0 * top}});
    const int64_t members = PointsInCluster(program.Shared, 1);
    // Esc is noticed when events are first processed, in the middle of the change.
    const auto stopped = [&](const std::function<void()>& change) {
      QTimer::singleShot(0, [&] { QTest::keyClick(program.View(), Qt::Key_Escape); });
      change();
      return Status(program).startsWith("Stopped") && PointsInCluster(program.Shared, 1) == members;
    };
    QVERIFY(stopped([&] { program.Click("cmdUndo"); }));
    program.Click("cmdWriteCBFile");
    // An open polygon stays open; one whose closing was stopped lacks its last corner.
    for (const QPointF& corner : {QPointF(100, 20), QPointF(1000, 20)})
      QTest::mousePress(program.Surface(), Qt::LeftButton, {}, program.At(corner.x(), corner.y()));
    QVERIFY(stopped([&] { program.Click("cmdReadCBFile"); }));
    QVERIFY(stopped([&] { QTest::mousePress(program.Surface(), Qt::RightButton, {}, program.At(1000, 50)); }));
    QCOMPARE(program.Shared.Clusters[1].Boundaries[0].VertexCount, 2);
    QTest::mousePress(program.Surface(), Qt::RightButton, {}, program.At(100, 90));
    QCOMPARE(program.Shared.Clusters[1].Boundaries[0].VertexCount, 3);
    QVERIFY(PointsInCluster(program.Shared, 1) < members);
  }

  void AHeldKeyDoesNotPileRedrawsUp() {
    Program program(3000);
    program.Load();
    program.Type("txtDelay", "1");
    // Each pause of the redraw delivers the next key.
    int keys = 0, depth = 0, deepest = 0;
    QTimer held;
    connect(&held, &QTimer::timeout, [&] {
      deepest = std::max(deepest, ++depth);
      if (++keys == 50) held.stop();
      QTest::keyClick(program.View(), Qt::Key_Down);
      --depth;
    });
    held.start(0);
    program.Click("cmdRedraw");
    QCOMPARE(keys, 50);
    QCOMPARE(deepest, 1);
    QVERIFY2(program.Shared.YParameter == kPosY, "the last parameter in use");
    QString count = program.View()->findChild<QLabel*>("count")->text();
    QCOMPARE(count.remove(QRegularExpression("[^0-9a-z]")), "3000of3000pointsdrawn");
  }

  void CancellingAPolygonLeavesUndoUnchanged() {
    Program program;
    program.Load();
    program.Click("lblNewCluster(1)");
    program.DrawPolygon({{100, 10}, {900, 10}, {500, 80}});
    const int64_t first = PointsInCluster(program.Shared, 1);
    program.DrawPolygon({{400, 10}, {600, 10}, {500, 80}});
    const int64_t second = PointsInCluster(program.Shared, 1);
    QVERIFY(first > second && second > 0);
    for (const QPointF& corner : {QPointF(200, 20), QPointF(300, 30)})
      QTest::mousePress(program.Surface(), Qt::LeftButton, {}, program.At(corner.x(), corner.y()));
    QTest::keyClick(program.View(), Qt::Key_Escape);
    QCOMPARE(PointsInCluster(program.Shared, 1), second);
    program.Click("cmdUndo");
    QCOMPARE(PointsInCluster(program.Shared, 1), first);
  }

  void DisagreeingRecordsAndTimesAreReported() {
    Program program;
    program.Load();
    QVERIFY(!Status(program).contains("span"));
    program.Type("txtEndTime", "1500000");
    program.Click("cmdLoadPoints");
    QVERIFY(Status(program).contains("do not cover"));
    // An epoch with records that an earlier search found for other times.
    auto* epochs = program.Get<QComboBox>("cboEpochs");
    epochs->addItem("run: 1600000 1700000");
    program.Shared.EpochStartRecord[0] = 10;
    program.Shared.EpochEndRecord[0] = 90;
    epochs->setCurrentIndex(0);
    emit epochs->activated(0);
    QVERIFY(Status(program).contains("earlier search"));
    program.Shared.EpochStartRecord[0] = 600;
    program.Shared.EpochEndRecord[0] = 700;
    emit epochs->activated(0);
    QCOMPARE(Status(program), "");
  }

  void AStoppedAnalysisSaysWhatItLeaves() {
    Program program(300000);
    program.Load();
    program.Click("lblNewCluster(1)");
    program.DrawPolygon({{100, 10}, {250000, 10}, {250000, 80}});
    QTimer::singleShot(0, [&] { QTest::keyClick(program.View(), Qt::Key_Escape); });
    program.Click("cmdAutoCorr");
    QVERIFY(program.Shared.TemporaryMode);
    QVERIFY(Status(program).startsWith("Stopped; cl-tmp and ttmp may have been replaced."));
    // A command that was stopped later leaves no more than this.
    QTimer::singleShot(0, [&] { QTest::keyClick(program.View(), Qt::Key_Escape); });
    program.Click("cmdLoadPoints");
    QCOMPARE(Status(program), "Stopped; nothing was changed.");
  }

  void ACopySaysWhatItDid() {
    Program program;
    program.Load();
    for (const int c : {4, 7}) {
      program.Click(QString("lblNewCluster(%1)").arg(c));
      program.DrawPolygon({{c * 100.0, 10}, {c * 100.0 + 150, 10}, {c * 100.0, 90}});
    }
    const QColor yellow(255, 255, 0);  // cluster 4
    const int drawn = program.Pixels(yellow);
    QVERIFY(drawn > 0);
    // Text that names no cluster changes nothing, not even an open polygon.
    QTest::mousePress(program.Surface(), Qt::LeftButton, {}, program.At(500, 50));
    const UndoSnapshot undo = program.Shared.Undo;
    for (const char* text : {"", "0", "31", "abc"}) {
      program.Type("txtCopyCluster", text);
      program.Click("cmdCopyCluster");
      QVERIFY(Status(program).startsWith("Nothing was copied"));
    }
    QTest::mousePress(program.Surface(), Qt::LeftButton, {}, program.At(600, 50));
    QCOMPARE(program.Shared.Clusters[7].Boundaries[0].VertexCount, 2);
    QVERIFY(program.Shared.Undo.Clusters == undo.Clusters);
    QTest::mousePress(program.Surface(), Qt::RightButton, {}, program.At(600, 80));

    const auto copy = [&](int from, const char* to) {
      program.Click(QString("lblNewCluster(%1)").arg(from));
      program.Type("txtCopyCluster", to);
      program.Click("cmdCopyCluster");
      return Status(program);
    };
    QCOMPARE(copy(7, "0.6"), "Cluster 7 was copied to cluster 1.");
    QCOMPARE(copy(20, "21"), "Cluster 20 has no boundary to copy.");
    QCOMPARE(copy(20, "4"),
             "Cluster 4 was deleted: cluster 20 is empty. Undo restores it; Redraw removes it from the picture.");
    QVERIFY(program.Shared.Clusters[4].BoundaryCount == 0 && program.Pixels(yellow) == drawn);
    QVERIFY(copy(7, "7").startsWith("Cluster 7 was deleted: it was copied onto itself."));
    QCOMPARE(program.Shared.Clusters[7].BoundaryCount, int16_t{0});
  }

  void APartToDrawThatIsNotANumberIsReported() {
    Program program;
    program.Load();
    auto* count = program.View()->findChild<QLabel*>("count");
    program.Type("txtDownsampleFraction", "half");
    QVERIFY(!count->text().contains("not a number"));
    program.Click("chkDownsample");
    QVERIFY(count->text().contains("not a number"));
    program.Type("txtDownsampleFraction", "0.5");
    program.Click("cmdRedraw");
    QVERIFY(!count->text().contains("not a number"));
  }

  void AFormWithUnsavedWorkKeepsTheProgramOpen() {
    Program program;
    program.Start();
    program.Click("cmdDefineEpochs");
    QWidget* epochs = program.Form.findChild<QWidget*>("TimeEpochs");
    Box(epochs, "txtEpochLabel(0)")->setText("run");
    program.Answers.Agree = false;
    program.Form.close();
    QVERIFY(program.Form.isVisible() && epochs->isVisible());
    QVERIFY(!QFile::exists(program.Path("TT1/cbfile.exit.txt")));
    program.Answers.Agree = true;
    program.Form.close();
    QVERIFY(!program.Form.isVisible());
  }

  void ZoomsOnAnAxisThatRunsBackwards() {
    Program program;
    program.Load();
    program.Type("txtLower", "900");
    program.Type("txtUpper", "100");
    program.Click("cmdscaleXaxis");
    program.Click("cmdRedraw");
    program.Click("optZoom");
    program.Drag(program.At(700, 20), program.At(300, 80));
    QVERIFY(std::abs(program.Shared.AxisMinimum[0] - 300) < 5 && std::abs(program.Shared.AxisMaximum[0] - 700) < 5);
  }

  void ACommandThatCannotRunSaysWhatToDoNext() {
    Program program;
    program.Start();
    program.Click("cmdRedraw");
    QVERIFY(Status(program).contains("Load Points"));
    program.Click("cmdLoadPoints");
    program.Click("cmdRateMap");
    QVERIFY(Status(program).contains("Choose a cluster"));
    program.Click("cmdDeleteCluster");
    QVERIFY(Status(program).contains("Choose a cluster"));
    program.Click("lblNewCluster(2)");
    program.Click("cmdRateMap");
    QVERIFY(Status(program).contains("Position file"));
    program.Click("cmdReadCBFile");
    QCOMPARE(Status(program), "There is no boundaries file (cbfile) in this folder yet.");
    program.Click("cmdWriteCBFile");
    program.Type("txtCBFileRead", "cbfile.m2");
    program.Click("cmdReadCBFile");
    QCOMPARE(Status(program), "Boundaries files here: cbfile.m1");
    program.Click("cmdUndo");
    QCOMPARE(Status(program), "There was nothing to undo.");
  }

 private:
  static QString Status(const Program& program) { return program.Form.statusBar()->findChild<QLabel*>()->text(); }
};

static const bool added = AddFormTest<AtWorkTest>();

#include "at_work_test.moc"
