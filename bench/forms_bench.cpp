// User commands on the real forms.

#include <QtWidgets>

#include "gui/controls/dialogs.h"
#include "gui/forms/main_form.h"
#include "support.h"

namespace pallomir::bench {

namespace {

class ChoosingDialogs : public Dialogs {
 public:
  void ShowMessage(QWidget*, const QString& text, const QString&) override { qFatal("%s", qPrintable(text)); }
  QString OpenFile(QWidget*, const FileDialogOptions&) override {
    return QString::fromStdString(RecordingFolder()) + "/TT1.Ntt.parms";
  }
  QString SaveFile(QWidget*, const FileDialogOptions&) override { return {}; }
  int Print(QWidget*, QPrinter&) override { return 0; }
  bool Confirm(QWidget*, const QString&) override { return true; }
  bool StartProgram(const QString&) override { return false; }
  bool ShowDocument(const QString&) override { return false; }
};

/// The program on the benchmark recording.
struct Program {
  Session Shared;
  ChoosingDialogs Answers;
  Main_Form Form{Shared, Answers};

  Program() {
    Form.Form_Load();
    Form.show();
    Surface()->window()->resize(900, 940);
    QApplication::processEvents();
  }
  QWidget* Surface() {
    for (QWidget* window : QApplication::topLevelWidgets())
      if (window->objectName() == "Projections" && window->isVisible()) return window->findChild<QWidget*>("surface");
    return nullptr;
  }
  void Load() {
    Form.findChild<QPushButton*>("cmdLoadPoints")->click();
    QApplication::processEvents();
  }
  void Mouse(QEvent::Type type, Qt::MouseButton button, QPointF at, Qt::KeyboardModifiers keys = {}) {
    QWidget* surface = Surface();
    QMouseEvent event(type, at, surface->mapToGlobal(at), button, button, keys);
    QApplication::sendEvent(surface, &event);
  }
};

void PressLoad(benchmark::State& state) {
  Program program;
  for (auto _ : state) program.Load();
}
BENCHMARK(PressLoad)
    ->Name("press Load Points to picture/ours")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(1)
    ->Repetitions(5);

void ClosePolygonOnForm(benchmark::State& state, int corners, bool star) {
  Program program;
  program.Load();
  program.Form.findChild<QAbstractButton*>("lblNewCluster(1)")->click();
  const QPointF middle(450, 450);
  for (auto _ : state) {
    state.PauseTiming();
    for (int k = 0; k < corners; ++k) {
      const double angle = 2 * M_PI * k / corners, radius = star && k % 2 ? 100 : 250;
      const QPointF at = middle + radius * QPointF(std::cos(angle), std::sin(angle));
      if (k + 1 == corners) state.ResumeTiming();
      program.Mouse(QEvent::MouseButtonPress, k + 1 == corners ? Qt::RightButton : Qt::LeftButton, at);
    }
    QApplication::processEvents();
  }
}

void CloseConvex(benchmark::State& state) {
  ClosePolygonOnForm(state, 6, false);
}
BENCHMARK(CloseConvex)
    ->Name("close a polygon of 6 to picture/ours")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(1)
    ->Repetitions(5);

void CloseStar(benchmark::State& state) {
  ClosePolygonOnForm(state, 51, true);
}
BENCHMARK(CloseStar)
    ->Name("close a star of 51 to picture/ours")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(1)
    ->Repetitions(5);

/// A move of the mouse while a corner of a hexagon is dragged, until the picture and the number of points are new.
void DragCornerOnForm(benchmark::State& state) {
  Program program;
  program.Load();
  program.Form.findChild<QAbstractButton*>("lblNewCluster(1)")->click();
  const auto corner = [](int k) {
    return QPointF(450, 450) + 250 * QPointF(std::cos(k * M_PI / 3), std::sin(k * M_PI / 3));
  };
  for (int k = 0; k < 6; ++k)
    program.Mouse(QEvent::MouseButtonPress, k == 5 ? Qt::RightButton : Qt::LeftButton, corner(k).toPoint());
  QApplication::processEvents();
  program.Mouse(QEvent::MouseButtonPress, Qt::LeftButton, corner(0).toPoint(), Qt::ControlModifier);
  int moved = 0;
  for (auto _ : state) {
    program.Mouse(QEvent::MouseMove, Qt::LeftButton, corner(0).toPoint() + QPoint(++moved % 100, 0),
                  Qt::ControlModifier);
    QApplication::processEvents();
  }
  program.Mouse(QEvent::MouseButtonRelease, Qt::LeftButton, corner(0).toPoint());
}
BENCHMARK(DragCornerOnForm)
    ->Name("a frame of dragging a corner/ours")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MinTime(0.3);

/// `clusters` clusters of one boundary, then Undo twice.
void UndoOnForm(benchmark::State& state, int clusters) {
  Program program;
  program.Load();
  for (int c = 1; c <= clusters; ++c) {
    Cluster& cluster = program.Shared.Clusters[c];
    cluster.BoundaryCount = 1;
    cluster.Boundaries[0] = Polygon(6);
    // Six by five over the clouds; neighbours overlap.
    for (Vertex& vertex : cluster.Boundaries[0].Vertices)
      vertex = {vertex.X - 120 + 30 * static_cast<float>(c % 6), vertex.Y - 60 + 30 * static_cast<float>(c / 6)};
    program.Shared.ClusterDefined[c] = true;
  }
  program.Form.findChild<QPushButton*>("cmdDeleteAllClusters")->click();
  for (auto _ : state) {
    program.Form.findChild<QPushButton*>("cmdUndo")->click();
    QApplication::processEvents();
    state.PauseTiming();
    program.Form.findChild<QPushButton*>("cmdUndo")->click();
    QApplication::processEvents();
    state.ResumeTiming();
  }
}

void UndoOne(benchmark::State& state) {
  UndoOnForm(state, 1);
}
BENCHMARK(UndoOne)
    ->Name("undo, 1 cluster, to picture/ours")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(1)
    ->Repetitions(5);

void UndoThirty(benchmark::State& state) {
  UndoOnForm(state, 30);
}
BENCHMARK(UndoThirty)
    ->Name("undo, 30 clusters, to picture/ours")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(1)
    ->Repetitions(5);

/// A redraw of 4 000 points and of stars of 51 corners, one per cluster, which reach `reach` times as far as the view;
/// the floor has none.
void RedrawOnForm(benchmark::State& state, int clusters, double reach) {
  Program program;
  program.Form.findChild<QLineEdit*>("txtEndEvent")->setText(QString::number(std::min<int64_t>(Spikes(), 4000) - 1));
  program.Load();
  const float widest = program.Shared.DataMaximum[0];
  for (int c = 1; c <= clusters; ++c) {
    Cluster& cluster = program.Shared.Clusters[c];
    cluster.BoundaryCount = 1;
    Boundary& star = cluster.Boundaries[0] = {0, 1, kVerticesPerBoundary, {}};
    for (int k = 0; k < kVerticesPerBoundary; ++k) {
      const double angle = 2 * M_PI * k * 20 / kVerticesPerBoundary + c;
      star.Vertices[k] = {widest * static_cast<float>(0.5 + reach / 2 * std::cos(angle)),
                          widest * static_cast<float>(0.5 + reach / 2 * std::sin(angle))};
    }
    program.Shared.ClusterDefined[c] = true;
  }
  auto* redraw = program.Form.findChild<QPushButton*>("cmdRedraw");
  for (auto _ : state) {
    redraw->click();
    QApplication::processEvents();
  }
}

void RedrawBare(benchmark::State& state) {
  RedrawOnForm(state, 0, 0);
}
BENCHMARK(RedrawBare)
    ->Name("redraw 4 000 points under 30 stars/floor")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MinTime(0.3);
BENCHMARK(RedrawBare)
    ->Name("redraw 4 000 points under 30 stars that reach far out/floor")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MinTime(0.3);

void RedrawNear(benchmark::State& state) {
  RedrawOnForm(state, 30, 0.8);
}
BENCHMARK(RedrawNear)
    ->Name("redraw 4 000 points under 30 stars/ours")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MinTime(0.3);

void RedrawFar(benchmark::State& state) {
  RedrawOnForm(state, 30, 1e6);
}
BENCHMARK(RedrawFar)
    ->Name("redraw 4 000 points under 30 stars that reach far out/ours")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MinTime(0.3);

}  // namespace

}  // namespace pallomir::bench
