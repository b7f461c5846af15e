// Boundaries mended with Ctrl held, on the real forms.

#include "form_tests.h"
#include "pallomir/clusters/classify.h"
#include "pallomir/clusters/undo.h"
#include "program.h"

using namespace pallomir;

namespace {

/// The program with a square of cluster 1 from (200, 20) to (600, 60).
struct Cut : Program {
  Cut() {
    Load();
    Click("lblNewCluster(1)");
    DrawPolygon({{200, 20}, {600, 20}, {600, 60}, {200, 60}});
    hint = View()->findChild<QLabel*>("message");
  }
  const Boundary& Square() const { return Shared.Clusters[1].Boundaries[0]; }
  int64_t Held() const { return PointsInCluster(Shared, 1); }

  void Begin(QPoint from, Qt::KeyboardModifiers keys = Qt::ControlModifier) const {
    QTest::mousePress(Surface(), Qt::LeftButton, keys, from);
  }
  void MoveTo(QPoint to) const {
    QTest::mouseMove(Surface(), to);
    QApplication::processEvents();
  }
  void End(QPoint to) const {
    QTest::mouseRelease(Surface(), Qt::LeftButton, Qt::ControlModifier, to);
    QApplication::processEvents();
  }
  void Move(QPoint from, QPoint to, Qt::KeyboardModifiers keys = Qt::ControlModifier) const {
    Begin(from, keys);
    MoveTo((from + to) / 2);
    MoveTo(to);
    End(to);
  }

  const QLabel* hint = nullptr;
};

bool Near(Vertex corner, double x, double y) {
  return std::abs(corner.X - x) < 4 && std::abs(corner.Y - y) < 0.6;
}

}  // namespace

class MendingTest : public QObject {
  Q_OBJECT

 private slots:
  void CtrlShowsHandlesOfTheChosenClusterOnly() {
    Cut program;
    const auto handles = [&](QPoint at) {
      const QImage image = program.Surface()->grab().toImage();
      int white = 0;
      for (int y = -2; y <= 2; ++y)
        for (int x = -2; x <= 2; ++x) white += image.pixelColor(at + QPoint(x, y)) == QColor(Qt::white);
      return white == 25;
    };
    const QPoint corner = program.At(600, 60);
    QVERIFY(!handles(corner));
    QTest::keyPress(program.View(), Qt::Key_Control);
    QVERIFY(handles(corner) && handles(program.At(200, 20)));
    QVERIFY(program.hint->text().contains("drag a corner to move it"));
    QTest::keyRelease(program.View(), Qt::Key_Control);
    QVERIFY(!handles(corner));
    program.Click("lblNewCluster(2)");
    QTest::keyPress(program.View(), Qt::Key_Control);
    QVERIFY(!handles(corner));
    QTest::keyRelease(program.View(), Qt::Key_Control);
  }

  void ADraggedCornerIsPreviewedAndThenClassified() {
    Cut program;
    const Boundary before = program.Square();
    const QPoint from = program.At(600, 60), to = program.At(900, 90);
    program.Begin(from);
    program.MoveTo(to);
    const QString preview = program.hint->text();
    QVERIFY2(preview.contains("Cluster 1 would hold"), qPrintable(preview));
    QVERIFY(program.Square() == before);
    QSignalSpy changes(program.View(), SIGNAL(BoundariesChanged()));
    program.End(to);
    QVERIFY(Near(program.Square().Vertices[2], 900, 90));
    QCOMPARE(program.Square().VertexCount, 4);
    QCOMPARE(changes.count(), 1);
    QVERIFY2(preview.contains("would hold " + QString::number(program.Held()) + " points"), qPrintable(preview));
    QVERIFY(program.hint->text().contains("holds " + QString::number(program.Held()) + " points"));
    program.Click("cmdUndo");
    QVERIFY(program.Square() == before);
  }

  void AnEdgeGetsACornerARightClickDeletesIt() {
    Cut program;
    program.Move(program.At(400, 60), program.At(400, 80));
    QCOMPARE(program.Square().VertexCount, 5);
    QVERIFY(Near(program.Square().Vertices[3], 400, 80));
    const auto rightClick = [&](QPoint at) {
      QTest::mousePress(program.Surface(), Qt::RightButton, Qt::ControlModifier, at);
      QApplication::processEvents();
    };
    rightClick(program.At(400, 80));
    QCOMPARE(program.Square().VertexCount, 4);
    rightClick(program.At(600, 60));
    QCOMPARE(program.Square().VertexCount, 3);
    const BoundaryTable undo = program.Shared.Undo.Clusters;
    rightClick(program.At(200, 60));
    QCOMPARE(program.Square().VertexCount, 3);
    QCOMPARE(program.hint->text(), "A boundary keeps at least 3 corners.");
    QVERIFY2(program.Shared.Undo.Clusters == undo, "a refusal takes no snapshot");
    program.Shared.Clusters[1].Boundaries[0].VertexCount = kVerticesPerBoundary;
    program.Begin(program.At(400, 20));
    QVERIFY(program.hint->text().startsWith("This boundary has 51 corners"));
    QCOMPARE(program.Square().VertexCount, kVerticesPerBoundary);
  }

  void ShiftMovesTheWholeBoundary() {
    Cut program;
    program.Move(program.At(400, 40), program.At(500, 50), Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(Near(program.Square().Vertices[0], 300, 30) && Near(program.Square().Vertices[2], 700, 70));
  }

  void WithoutAMoveOrAfterEscNothingChanges() {
    Cut program;
    const BoundaryTable cut = program.Shared.Clusters, undo = program.Shared.Undo.Clusters;
    const QPoint corner = program.At(600, 60), away = program.At(900, 90);
    program.Move(corner, corner);
    program.Begin(corner);
    program.MoveTo(away);
    QTest::keyClick(program.View(), Qt::Key_Escape);
    program.MoveTo(away + QPoint(5, 5));
    program.End(away);
    // Beside the boundary, Ctrl and a click do not begin a polygon that would replace it.
    program.Move(program.At(800, 80), program.At(850, 85));
    QVERIFY(program.Shared.Clusters == cut);
    QVERIFY(program.Shared.Undo.Clusters == undo);
  }

  void ADragEndsWhenItsBoundaryIsNoLongerThere() {
    Cut program;
    const QPoint corner = program.At(600, 60), away = program.At(900, 90);
    for (const auto& change : std::initializer_list<std::function<void()>>{
             [&] { program.Click("cmdDeleteCluster"); }, [&] { program.Show(1, 0); },
             [&] { program.Click("lblNewCluster(2)"); }}) {
      program.Begin(corner);
      program.MoveTo(away);
      change();
      const BoundaryTable cut = program.Shared.Clusters;
      program.MoveTo(away + QPoint(5, 5));
      program.End(away);
      QVERIFY(program.Shared.Clusters == cut);
      if (!program.Shared.ClusterDefined[1]) program.Click("cmdUndo");
      program.Click("lblChooseCluster(1)");
      program.Show(0, 1);
    }
  }
};

static const bool added = AddFormTest<MendingTest>();

#include "mending_test.moc"
