// The windows that show the cut while it is made.

#include "gui/live/live_windows.h"

#include <QtTest>
#include <random>

#include "form_tests.h"
#include "gui/live/cell_window.h"
#include "gui/live/clusters_window.h"
#include "gui/live/pairs_window.h"
#include "gui/viewers/figures.h"
#include "pallomir/results/measure_clusters.h"
#include "sample_program.h"

namespace pallomir {

namespace {

constexpr int kSpikes = 3000;

/// Works on a sample recording at random.
struct RandomProgram : SampleProgram {
  std::mt19937 Random{7};

  RandomProgram() { Load(); }
  int Below(int count) { return static_cast<int>(Random() % static_cast<unsigned>(count)); }

  void DrawPolygon() {
    auto* surface = View()->findChild<QWidget*>("surface");
    const QPoint middle(Below(surface->width()), Below(surface->height()));
    for (int k = 0; k < 5; ++k) {
      const double angle = 2 * M_PI * k / 5;
      const QPoint at = middle + (120 * QPointF(std::cos(angle), std::sin(angle))).toPoint();
      QTest::mousePress(surface, k == 4 ? Qt::RightButton : Qt::LeftButton, {}, at);
    }
  }
  /// Something that a user could do.
  void Command() {
    static const QStringList buttons = {
        "cmdUndo",    "cmdUndo",        "cmdDeleteCluster", "cmdDeleteClusterBounds", "cmdCopyCluster",
        "cmdScaleUp", "cmdScaleDown",   "cmdScaleDefaults", "chkWhiteBackground",     "cmdHideCL0",
        "cmdRandomX", "cmdWriteCBFile", "cmdReadCBFile",    "cmdLoadPoints"};
    const int what = Below(12);
    if (what < 4) return ChooseCluster(1 + Below(6));
    if (what < 7) return DrawPolygon();
    if (what == 7) {
      emit View()->findChild<LiveWindow*>()->ProjectionChosen(Below(4), 65 + Below(4));
      return;
    }
    if (what == 8) {
      const QString box = Below(2) == 0 ? "chkDisableClusterDisplay(%1)" : "chkDisplayClusterAsZero(%1)";
      return Click(box.arg(1 + Below(6)));
    }
    if (what == 9) Box<QLineEdit>(Form.get(), "txtCopyCluster")->setText(QString::number(1 + Below(7)));
    if (what == 10) Box<QLineEdit>(Form.get(), "txtEndEvent")->setText(QString::number(Below(kSpikes)));
    Click(buttons[Below(static_cast<int>(buttons.size()))]);
  }
};

}  // namespace

class LiveWindowsTest : public QObject {
  Q_OBJECT

 private slots:
  void EveryWindowEqualsAFreshOneAfterRandomCommands() {
    RandomProgram program;
    program.OpenAll();
    for (int k = 0; k < 500; ++k) {
      program.Command();
      if (k % 7 == 0) QApplication::processEvents();
    }
    program.Live()->Finish();
    QApplication::processEvents();

    QMainWindow host;
    LiveWindows fresh(
        program.Shared, program.Answers, &host,
        [&] {
          return LiveSettings{{program.Folder.filePath("sample/Pos.p").toStdString(), {}}, false};
        },
        [] { return false; });
    const auto& windows = program.Live()->Windows();
    for (size_t i = 0; i < windows.size(); ++i) {
      fresh.Windows()[i]->setFloating(true);
      fresh.Windows()[i]->resize(windows[i]->size());
      fresh.Windows()[i]->show();
    }
    QApplication::processEvents();
    fresh.Finish();
    QApplication::processEvents();
    for (size_t i = 0; i < windows.size(); ++i) {
      const QImage before = windows[i]->widget()->grab().toImage(),
                   now = fresh.Windows()[i]->widget()->grab().toImage();
      if (before != now) {
        before.save(QDir::temp().filePath(windows[i]->objectName() + "-old.png"));
        now.save(QDir::temp().filePath(windows[i]->objectName() + "-fresh.png"));
      }
      QVERIFY2(before == now, qPrintable(windows[i]->objectName() + ": see the pictures in " + QDir::tempPath()));
    }
  }

  void TheTableHoldsTheMeasuresOfTheCut() {
    RandomProgram program;
    for (const int c : {1, 2, 5}) {
      program.ChooseCluster(c);
      program.DrawPolygon();
    }
    const auto* table = program.Open<ClustersWindow>()->findChild<QTableView*>("clusterTable");
    program.Live()->Finish();
    MeasureSources sources{.SpikeFile = program.Folder.filePath("sample/TT1/TT1.Ntt").toStdString(),
                           .PositionFile = program.Folder.filePath("sample/Pos.p").toStdString(),
                           .Time = LoadedSpan(program.Shared.Points),
                           .Settings = {}};
    const MeasuredCut cut = MeasureClusters(program.Shared, sources);
    QCOMPARE(table->model()->rowCount(), static_cast<int>(cut.Clusters.size()));
    for (int row = 0; row < table->model()->rowCount(); ++row)
      for (size_t k = 0; k < ShownMeasures().size(); ++k) {
        if (table->isColumnHidden(static_cast<int>(k) + 1)) continue;
        const Measured value = ShownMeasures()[k].Value->Of(cut.Clusters[static_cast<size_t>(row)]);
        const QVariant shown = table->model()->index(row, static_cast<int>(k) + 1).data(Qt::UserRole);
        QCOMPARE(shown.isNull(), !value.Known());
        if (value.Known()) QCOMPARE(shown.toDouble(), value.Value);
      }
  }

  void TheProjectionKeepsItsSizeWhileOneCuts() {
    RandomProgram program;
    program.Open<CellWindow>();
    program.View()->resize(900, 600);
    QApplication::processEvents();
    const auto* surface = program.View()->findChild<QWidget*>("surface");
    const QSize before = surface->size();
    for (const int c : {3, 4, 5}) {
      program.ChooseCluster(c);
      QApplication::processEvents();
      QCOMPARE(surface->size(), before);
      program.DrawPolygon();
      program.Live()->Finish();
      QApplication::processEvents();
      QCOMPARE(surface->size(), before);
    }
  }

  void ClicksInTheWindowsChoose() {
    RandomProgram program;
    for (const int c : {3, 4}) {
      program.ChooseCluster(c);
      program.DrawPolygon();
    }
    auto* grid = program.Open<PairsWindow>()->findChild<PairGrid*>();
    for (int y = grid->height() - 1; y > 0; --y)
      if (const auto pair = grid->PairAt({grid->width() / 2, y})) {
        QTest::mouseClick(grid, Qt::LeftButton, {}, {grid->width() / 2, y});
        QCOMPARE(PairOnView(program.Shared), grid->Pairs()[*pair]);
        break;
      }
    QVERIFY(PairOnView(program.Shared) != ParameterPair());

    auto* table = program.Open<ClustersWindow>()->findChild<QTableView*>("clusterTable");
    table->setCurrentIndex(table->model()->index(0, 0));
    QCOMPARE(program.Shared.CurrentCluster, 3);
    QTest::keyClick(program.View(), Qt::Key_N);
    QCOMPARE(program.Shared.CurrentCluster, 4);
    QTRY_COMPARE(table->currentIndex().row(), 1);
    QTest::keyClick(program.View(), Qt::Key_N);
    QCOMPARE(program.Shared.CurrentCluster, 3);
  }
};

static const bool kAdded = AddFormTest<LiveWindowsTest>();

}  // namespace pallomir

#include "live_windows_test.moc"
