// Keys that draw a polygon, on the real forms.

#include "form_tests.h"
#include "pallomir/clusters/classify.h"
#include "program.h"

using namespace pallomir;

namespace {

struct Drawing : Program {
  Drawing() {
    Load();
    Click("lblNewCluster(1)");
    hint = View()->findChild<QLabel*>("message");
  }
  const Cluster& Drawn() const { return Shared.Clusters[1]; }
  void Key(int key, Qt::KeyboardModifiers modifiers = {}) const {
    QTest::keyClick(View(), static_cast<Qt::Key>(key), modifiers);
    QApplication::processEvents();
  }
  void Corner(QPoint at) const { QTest::mousePress(Surface(), Qt::LeftButton, {}, at); }

  /// The position on the surface of corner k of the polygon.
  QPoint CornerAt(int k) const {
    const Vertex corner = Drawn().Boundaries[0].Vertices[k];
    return At(corner.X, corner.Y);
  }
  const QLabel* hint = nullptr;
};

}  // namespace

class DrawingKeysTest : public QObject {
  Q_OBJECT

 private slots:
  void BackspaceTakesBackCornersAndAtTheFirstThePolygon() {
    Drawing program;
    program.DrawPolygon({{100, 20}, {300, 20}, {200, 80}});
    const Cluster before = program.Drawn();
    const BoundaryTable undo = program.Shared.Undo.Clusters;
    for (const QPoint& at : {QPoint(30, 30), QPoint(90, 30), QPoint(90, 90)}) program.Corner(at);
    program.Key(Qt::Key_Backspace);
    QCOMPARE(program.Drawn().Boundaries[0].VertexCount, 2);
    QCOMPARE(program.CornerAt(1), QPoint(90, 30));
    program.Corner({120, 120});
    QCOMPARE(program.CornerAt(2), QPoint(120, 120));
    program.Key(Qt::Key_Backspace);
    program.Key(Qt::Key_Backspace);
    QCOMPARE(program.Drawn().Boundaries[0].VertexCount, 1);
    program.Key(Qt::Key_Backspace);
    QVERIFY(program.Drawn() == before);
    QVERIFY(program.Shared.Undo.Clusters == undo);
  }

  void EnterClosesAtThePointer() {
    Drawing program;
    program.Corner({30, 30});
    program.Corner({300, 30});
    QTest::mouseMove(program.Surface(), QPoint(300, 300));
    program.Key(Qt::Key_Return);
    QCOMPARE(program.Drawn().Boundaries[0].VertexCount, 3);
    QCOMPARE(program.CornerAt(2), QPoint(300, 300));
    QVERIFY(PointsInCluster(program.Shared, 1) > 0);
    program.Key(Qt::Key_Return);
    QCOMPARE(program.Drawn().Boundaries[0].VertexCount, 3);
    // Where the last corner was just set, Enter only closes.
    for (const QPoint at : {QPoint(30, 30), QPoint(300, 30), QPoint(300, 300), QPoint(30, 300)}) program.Corner(at);
    program.Key(Qt::Key_Return);
    QCOMPARE(program.Drawn().Boundaries[0].VertexCount, 4);
  }

  void AWholeCutWithTheCross() {
    Drawing program;
    QTest::mouseMove(program.View(), QPoint(-50, -50));
    program.Key(Qt::Key_C);
    program.Key(Qt::Key_Left, Qt::ControlModifier);
    program.Key(Qt::Key_Space);
    const QPoint first = program.CornerAt(0);
    const int x = program.Shared.XParameter;
    for (int k = 0; k < 3; ++k) program.Key(Qt::Key_Right, Qt::ControlModifier);
    program.Key(Qt::Key_Up, Qt::ShiftModifier);
    program.Key(Qt::Key_Space);
    program.Key(Qt::Key_Down);
    program.Key(Qt::Key_Down);
    QVERIFY(program.hint->text().contains("Enter for the last one"));
    program.Key(Qt::Key_Enter);
    QCOMPARE(program.Drawn().Boundaries[0].VertexCount, 3);
    QCOMPARE(program.CornerAt(1) - first, QPoint(120, -1));
    QCOMPARE(program.CornerAt(2) - first, QPoint(120, 15));
    QVERIFY2(program.Shared.XParameter == x, "the arrows do not step the axes meanwhile");
    // Esc first cancels an open polygon, then hides the cross; then the arrows step the axes again.
    program.Key(Qt::Key_Space);
    program.Key(Qt::Key_Escape);
    QCOMPARE(program.Drawn().Boundaries[0].VertexCount, 3);
    program.Key(Qt::Key_Right);
    QCOMPARE(program.Shared.XParameter, x);
    program.Key(Qt::Key_Escape);
    program.Key(Qt::Key_Right);
    QCOMPARE(program.Shared.XParameter, x + 1);
  }

  void ParametersThatAreAllZeroAreDimmedAndSteppedOver() {
    Drawing program;
    const auto* list = program.Get<QListWidget>("lstY_Axis");
    const auto dim = [&](int p) { return list->item(p)->foreground().style() != Qt::NoBrush; };
    QVERIFY(!dim(0) && !dim(1) && dim(2) && !dim(kRecordSlot) && dim(kValley) && !dim(kPosX));
    const Session& session = program.Shared;
    program.Key(Qt::Key_Down);
    QCOMPARE(session.YParameter, int16_t{kRecordSlot});
    // The record numbers are no wire: there is one pair.
    for (const auto modifiers : {Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier}) program.Key(Qt::Key_U, modifiers);
    QCOMPARE(std::pair(session.XParameter, session.YParameter), std::pair(int16_t{0}, int16_t{1}));
    // In the lists themselves they can be chosen.
    auto* chosen = program.Get<QListWidget>("lstY_Axis");
    chosen->setFocus();
    QTest::keyClick(chosen, Qt::Key_Down);
    QTRY_COMPARE(session.YParameter, int16_t{2});
    QVERIFY(program.hint->text().contains("is 0 for every spike"));
  }

  void TheCrossStaysOnTheSurface() {
    Drawing program;
    program.Key(Qt::Key_C);
    for (int k = 0; k < 20; ++k) program.Key(Qt::Key_Right, Qt::ControlModifier);
    for (int k = 0; k < 20; ++k) program.Key(Qt::Key_Down, Qt::ControlModifier);
    program.Key(Qt::Key_Space);
    QCOMPARE(program.CornerAt(0), QPoint(program.Surface()->width() - 1, program.Surface()->height() - 1));
    program.View()->resize(300, 330);
    QApplication::processEvents();
    program.Key(Qt::Key_Space);
    QCOMPARE(program.CornerAt(1), QPoint(program.Surface()->width() - 1, program.Surface()->height() - 1));
    program.Key(Qt::Key_C);
    program.Key(Qt::Key_Space);
    QCOMPARE(program.Drawn().Boundaries[0].VertexCount, 2);
  }
};

static const bool added = AddFormTest<DrawingKeysTest>();

#include "drawing_keys_test.moc"
