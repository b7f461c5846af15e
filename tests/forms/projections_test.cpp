// The projection view on the real forms: what the mouse does, and what a redraw shows.

#include "form_tests.h"
#include "pallomir/clusters/classify.h"
#include "program.h"

using namespace pallomir;

class ProjectionsTest : public QObject {
  Q_OBJECT

 private slots:
  void EscRestoresTheBoundaryThatAPolygonReplaces() {
    Program program;
    program.Load();
    program.Click("lblNewCluster(1)");
    program.DrawPolygon({{100, 20}, {300, 20}, {200, 80}});
    const BoundaryTable cut = program.Shared.Clusters;
    const int64_t members = PointsInCluster(program.Shared, 1);
    QTest::mousePress(program.Surface(), Qt::LeftButton, {}, {30, 30});
    program.Click("cmdReadCBFile");
    QCOMPARE(program.Answers.Messages.takeLast(), "ERROR|CBFile does not exist");
    QTest::keyClick(program.View(), Qt::Key_Escape);
    QVERIFY(program.Shared.Clusters == cut);
    QCOMPARE(PointsInCluster(program.Shared, 1), members);
    program.Click("cmdUndo");
    QCOMPARE(PointsInCluster(program.Shared, 1), members);
  }

  void AfterClearTheMouseUsesTheCurrentRangesAndSize() {
    Program program;
    program.Load();
    const Session& session = program.Shared;
    program.Type("txtLower", "0");
    program.Type("txtUpper", "2000");
    program.Click("cmdscaleXaxis");
    // Until the picture is cleared or redrawn, the picture decides: 999 is at its right edge.
    program.Click("lblNewCluster(1)");
    const int right = program.Surface()->width() - 1;
    QTest::mousePress(program.Surface(), Qt::LeftButton, {}, {right, 50});
    QVERIFY(std::abs(session.Clusters[1].Boundaries[0].Vertices[0].X - 999) < 3);
    QTest::keyClick(program.View(), Qt::Key_Escape);

    program.Type("txtUpper", "4000");
    program.Click("cmdscaleXaxis");
    program.Click("cmdClear");
    program.Type("txtUpper", "8000");
    program.Click("cmdscaleXaxis");
    program.View()->resize(700, 500);
    QApplication::processEvents();
    const QPoint corners[] = {program.At(1000, 20), program.At(6000, 20), program.At(6000, 80)};
    for (const QPoint& at : corners)
      QTest::mousePress(program.Surface(), &at == corners + 2 ? Qt::RightButton : Qt::LeftButton, {}, at);
    const Boundary& drawn = session.Clusters[1].Boundaries[0];
    QVERIFY(std::abs(drawn.Vertices[0].X - 1000) < 10 && std::abs(drawn.Vertices[1].X - 6000) < 10);
    QVERIFY(std::abs(drawn.Vertices[2].Y - 80) < 1);
    program.Click("cmdClear");
    program.Click("optZoom");
    program.Drag(program.At(2000, 30), program.At(6000, 90));
    QVERIFY(std::abs(session.AxisMinimum[0] - 2000) < 10 && std::abs(session.AxisMaximum[0] - 6000) < 10);
  }

  void TheZoomRectangleReachesAsFarAsTheMouse() {
    Program program;
    program.Load();
    program.Click("optZoom");
    program.Drag(program.At(500, 50), program.At(1998, 75));
    QVERIFY(std::abs(program.Shared.AxisMinimum[0] - 500) < 5);
    QVERIFY(std::abs(program.Shared.AxisMaximum[0] - 1998) < 5);
  }

  void TheWheelZoomsTheMiddleButtonMovesAndBackspaceStepsBack() {
    Program program;
    program.Load();
    const Session& session = program.Shared;
    const float left = session.AxisMinimum[0], right = session.AxisMaximum[0];
    const QPoint at = program.At(300, 40);
    QWheelEvent wheel(at, program.Surface()->mapToGlobal(at), {}, {0, 240}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(program.Surface(), &wheel);
    QVERIFY(std::abs(session.AxisMaximum[0] - session.AxisMinimum[0] - 0.64F * (right - left)) < 1);
    QVERIFY(std::abs(QPoint(program.At(300, 40) - at).manhattanLength()) <= 2);

    QTest::mousePress(program.Surface(), Qt::MiddleButton, {}, at);
    const QPoint there = at + QPoint(60, -20);
    QTest::mouseMove(program.Surface(), there);
    QTest::mouseRelease(program.Surface(), Qt::MiddleButton, {}, there);
    QVERIFY(QPoint(program.At(300, 40) - there).manhattanLength() <= 2);
    QTest::keyClick(program.View(), Qt::Key_Backspace);
    QVERIFY(QPoint(program.At(300, 40) - at).manhattanLength() <= 2);
    QTest::keyClick(program.View(), Qt::Key_Backspace);
    QCOMPARE(session.AxisMinimum[0], left);
    QCOMPARE(session.AxisMaximum[0], right);
  }

  void EveryPressIsACornerButTheSecondOfADoubleClick() {
    Program program;
    program.Load();
    program.Click("lblNewCluster(1)");
    const Boundary& drawn = program.Shared.Clusters[1].Boundaries[0];
    QTest::mousePress(program.Surface(), Qt::LeftButton, {}, {30, 30});
    QTest::mousePress(program.Surface(), Qt::LeftButton, {}, {30, 30});
    QCOMPARE(drawn.VertexCount, 2);
    const auto again = [&](QPoint at) {
      QMouseEvent event(QEvent::MouseButtonDblClick, at, program.Surface()->mapToGlobal(at), Qt::LeftButton,
                        Qt::LeftButton, {});
      QApplication::sendEvent(program.Surface(), &event);
    };
    again({31, 30});
    QCOMPARE(drawn.VertexCount, 2);
    again({36, 30});
    QCOMPARE(drawn.VertexCount, 3);
  }

  void PointsOnAnAxisAreSeen() {
    Program program;
    program.Load();
    // All spikes lie on the left edge, on the axis line itself; then on the lower one.
    program.Show(2, 1);
    const QImage left = Grab(program);
    program.Show(0, 2);
    const QImage below = Grab(program);
    int beside = 0, under = 0;
    for (int k = 0; k < left.height(); ++k) beside += left.pixel(0, k) == 0xFFFFFFFF;
    for (int k = 0; k < below.width(); ++k) under += below.pixel(k, below.height() - 1) == 0xFFFFFFFF;
    QVERIFY2(beside >= 90, qPrintable(QString::number(beside)));
    QVERIFY2(under >= 300, qPrintable(QString::number(under)));
  }

  void AConcavePolygonShowsThePartThatCounts() {
    Program program;
    program.Load();
    program.Click("cmdHideCL0");
    program.Click("lblNewCluster(1)");
    const auto* hint = program.View()->findChild<QLabel*>("message");
    const auto corner = [&](double x, double y, Qt::MouseButton button) {
      QTest::mousePress(program.Surface(), button, {}, program.At(x, y));
      QApplication::processEvents();
    };
    const QColor inShade(47, 53, 71), ring(255, 176, 32);
    corner(100, 10, Qt::LeftButton);
    corner(900, 10, Qt::LeftButton);
    corner(300, 40, Qt::LeftButton);
    QCOMPARE(program.Pixels(inShade), 0);
    corner(100, 90, Qt::LeftButton);
    QVERIFY(program.Pixels(inShade) > 100 && program.Pixels(ring) > 5);
    QVERIFY(hint->text().contains("the marked corner makes the polygon concave"));
    corner(100, 50, Qt::RightButton);
    QVERIFY(program.Pixels(inShade) > 100 && program.Pixels(ring) > 5);
    QVERIFY(hint->text().contains("holds") && hint->text().contains("Only the shaded part counts"));
    // Another cluster's polygon is not mentioned, nor one that is not drawn.
    program.Click("lblNewCluster(2)");
    QApplication::processEvents();
    QCOMPARE(program.Pixels(ring), 0);
    program.Click("lblChooseCluster(1)");
    program.Click("chkDrawClustBounds");
    QCOMPARE(program.Pixels(ring), 0);
  }

  void DensityAndSafeColoursAreShownAndTakenBack() {
    Program program;
    program.Load();
    program.Click("lblNewCluster(1)");
    program.DrawPolygon({{100, 20}, {300, 20}, {200, 80}});
    program.Click("chkDrawClustBounds");
    auto* const label = program.Get("lblChooseCluster(1)");
    const QColor red(255, 0, 0), orange(0xE6, 0x9F, 0);
    const int points = program.Pixels(red);
    QVERIFY(points > 20);
    const auto safe = program.Form.findChild<QAction*>("mnuSafeColours");
    safe->trigger();
    QCOMPARE(program.Pixels(orange), points);
    const QImage inSafe = label->grab().toImage();
    safe->trigger();
    QCOMPARE(program.Pixels(red), points);
    QVERIFY(label->grab().toImage() != inSafe);
    // On an axis this long several points share a pixel, and only the fullest pixels are white.
    const QString count = program.View()->findChild<QLabel*>("count")->text();
    QTest::keyClick(program.View(), Qt::Key_D);
    QVERIFY(program.Form.findChild<QAction*>("mnuDensity")->isChecked());
    QCOMPARE(program.View()->findChild<QLabel*>("count")->text(), count);
    program.Shared.AxisMaximum[0] = 200000;
    program.Click("cmdRedraw");
    const int full = program.Pixels(Qt::white);
    QTest::keyClick(program.View(), Qt::Key_D);
    QVERIFY(program.Pixels(Qt::white) > full);
  }

  void PointsOneAtATimeFollowDrawSpeedAndCanBeFinishedAtOnce() {
    Program program;
    program.Load();
    program.Type("txtDelay", "200");
    const auto* count = program.View()->findChild<QLabel*>("count");
    const auto drawn = [&] { return count->text().section(' ', 0, 0).toInt(); };
    QElapsedTimer clock;
    clock.start();
    QTest::mousePress(program.Get("cmdRedraw"), Qt::RightButton);
    QTRY_VERIFY(drawn() >= 40 && drawn() < 1000);
    QVERIFY2(drawn() <= 1 + clock.elapsed() / 5, qPrintable(count->text()));
    QTest::keyClick(program.View(), Qt::Key_Return);
    QCOMPARE(count->text().section(' ', 0, 3), QString::fromUtf8("1\u202f000 of 1\u202f000 points"));
    QTest::qWait(80);
    QCOMPARE(count->text().section(' ', 0, 3), QString::fromUtf8("1\u202f000 of 1\u202f000 points"));
  }

 private:
  static QImage Grab(const Program& program) {
    return program.Surface()->grab().toImage().convertToFormat(QImage::Format_RGB32);
  }
};

static const bool added = AddFormTest<ProjectionsTest>();

#include "projections_test.moc"
