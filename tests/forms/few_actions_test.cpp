// The whole job in as few presses of buttons and keys as it should take.

#include <QtTest>

#include "form_tests.h"
#include "pallomir/clusters/classify.h"
#include "pallomir/projection/view.h"
#include "sample_program.h"

namespace pallomir {

namespace {

/// Does the job with mouse and keyboard, and counts the actions: a press of a button or key, a letter typed.
struct CountingUser {
  SampleProgram Program{20'000};
  int Actions = 0;
  /// Where keys go: what was clicked last.
  QWidget* Focus = Box<QWidget>(Program.Form.get(), "cmdLoadPoints");

  CountingUser() {
    Program.View()->resize(690, 760);
    QApplication::processEvents();
  }
  void Key(Qt::Key key) {
    ++Actions;
    QTest::keyClick(Focus, key);
    QApplication::processEvents();
  }
  void Click(QWidget* at, QPoint where, Qt::MouseButton button = Qt::LeftButton) {
    ++Actions;
    QTest::mouseClick(at, button, {}, where);
    Focus = at;
    QApplication::processEvents();
  }
  /// A rectangle in the displayed projection, the last corner with the right button.
  void Cut(QPointF low, QPointF high) {
    auto* surface = Program.View()->findChild<QWidget*>("surface");
    const View view = ViewOf(Program.Shared, surface->width(), surface->height());
    const QPointF corners[] = {low, {high.x(), low.y()}, high, {low.x(), high.y()}};
    for (int k = 0; k < 4; ++k)
      Click(surface, QPointF(view.PixelX(corners[k].x()), view.PixelY(corners[k].y())).toPoint(),
            k == 3 ? Qt::RightButton : Qt::LeftButton);
  }
};

/// Where four of the sample's cells are: ranges of their peaks on the four wires.
struct Cloud {
  double Low[4], High[4];
};
constexpr Cloud kClouds[] = {{{2300, 4000, 2700, 7000}, {4600, 6900, 5300, 10'700}},
                             {{2300, 3430, 2550, 4270}, {4060, 5430, 4380, 6520}},
                             {{2720, 2550, 5080, 4250}, {4540, 4340, 7570, 6470}},
                             {{5550, 3390, 7120, 3720}, {8150, 5380, 10'390, 5790}}};

}  // namespace

class FewActionsTest : public QObject {
  Q_OBJECT

 private slots:
  /// Without the live windows it took 156.
  void FourCellsAreCutCheckedAndReportedInHalfTheActionsOfBefore() {
    CountingUser user;
    SampleProgram& program = user.Program;
    user.Key(Qt::Key_Space);  // Load Points has the focus
    QVERIFY(PointsLoaded(program.Shared));
    for (int wires = 0; wires < 4; wires += 2) {
      for (const int c : {3, 2, 0, 1}) {
        // Two digits typed quickly are one number, if there is such a cluster.
        if (c == 1 || (c == 3 && wires > 0)) QTest::qWait(850);
        user.Key(static_cast<Qt::Key>(Qt::Key_1 + c));
        user.Cut({kClouds[c].Low[wires], kClouds[c].Low[wires + 1]},
                 {kClouds[c].High[wires], kClouds[c].High[wires + 1]});
      }
      // Five steps through the pairs of wires lead from the first to the last.
      for (int k = 0; k < 5 && wires == 0; ++k) user.Key(Qt::Key_U);
    }
    const int cut = user.Actions;

    user.Key(Qt::Key_F4);  // Cell
    for (int c = 0; c < 4; ++c) {
      user.Key(Qt::Key_N);
      program.Live()->Finish();
      QVERIFY(program.Live()->Cut().Clusters[program.Shared.CurrentCluster].Fresh.all());
    }
    const int checked = user.Actions - cut;

    // The menu File, its entry, and Enter in the file dialog.
    user.Actions += 3;
    const QString pdf = program.Folder.filePath("reports.pdf");
    program.Answers.FilesToOpen = {pdf};
    program.Form->findChild<QAction*>("mnuAllReports")->trigger();
    QVERIFY2(QFileInfo(pdf).size() > 10'000, qPrintable(program.Answers.Messages.join('\n')));

    for (int c = 1; c <= 4; ++c) {
      QCOMPARE(program.Shared.Clusters[c].BoundaryCount, 2);
      QVERIFY2(PointsInCluster(program.Shared, c) > 200,
               qPrintable(QString("%1: %2").arg(c).arg(PointsInCluster(program.Shared, c))));
    }
    QVERIFY2(user.Actions <= 156 / 2, qPrintable(QString("cut %1, checked %2").arg(cut).arg(checked)));
  }
};

static const bool kAdded = AddFormTest<FewActionsTest>();

}  // namespace pallomir

#include "few_actions_test.moc"
