// Runs every command on the real forms with a large recording, and prints how long each left the user interface
// unresponsive: the longest time between two processings of events.
//   pallomir-gaps [RECORDING]
// RECORDING is a sample recording; without it, one of PALLOMIR_BENCH_SPIKES (a million) spikes is made.

#include <QPrinter>
#include <QtWidgets>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <map>
#include <vector>

#include "gaps/on_recording.h"
#include "gaps/pulse.h"
#include "gui/forms/main_form.h"
#include "gui/live/live_window.h"
#include "pallomir/session/session.h"

namespace pallomir::bench {

namespace {

// Milliseconds for which a command is watched after it has returned. A run with few points only tries every command.
const int kGoesOn = Spikes() < 100'000 ? 10 : 300;
constexpr double kTold = 50;  // milliseconds; shorter gaps are only counted

/// A polygon of regular corners on an ellipse around all points, so that no point is rejected early.
Boundary RoundAll(const Session& session, int x, int y) {
  Boundary boundary{static_cast<int16_t>(x), static_cast<int16_t>(y), kVerticesPerBoundary, {}};
  const auto middle = [&](int p) { return (session.DataMinimum[p] + session.DataMaximum[p]) / 2; };
  for (int k = 0; k < kVerticesPerBoundary; ++k) {
    const double angle = 2 * M_PI * k / kVerticesPerBoundary;
    boundary.Vertices[k] = {
        middle(x) + static_cast<float>(std::cos(angle)) * (session.DataMaximum[x] - session.DataMinimum[x] + 1),
        middle(y) + static_cast<float>(std::sin(angle)) * (session.DataMaximum[y] - session.DataMinimum[y] + 1)};
  }
  return boundary;
}

class Driver : public SampleDialogs {
 public:
  using SampleDialogs::SampleDialogs;

  bool Run() {
    bool started = false;
    Measure("start", [&] { started = form_.Form_Load(); });
    if (!started) return false;
    form_.show();
    Measure("Load Points", [&] { Press("cmdLoadPoints"); });
    OpenLiveWindows();
    LookUpTimes();
    CutSome();
    PressAll(&form_, {"cmdExit", "cmdLoadPoints"});
    LookAtProjection();
    WorkOnLargestCut();
    CutSome();
    for (const char* analysis : {"cmdRateMap", "cmdOccMap", "cmd2DAutoCorr", "cmdAutoCorr", "cmdLogISI", "cmdDirection",
                                 "cmdReport", "cmdShowWaveforms", "cmdClNote"})
      LookAt(analysis);
    DefineEpochs();
    Measure("close the program", [&] { form_.close(); });
    Print();
    return true;
  }

  QString OpenFile(QWidget*, const FileDialogOptions& options) override {
    return recording_ + (options.DefaultExtension == "Ntt.parms" ? "/TT1/TT1.Ntt.parms" : "/TT1/Events.Nev");
  }
  QString SaveFile(QWidget*, const FileDialogOptions& options) override {
    const QString name = options.FileName.isEmpty() ? "saved" : options.FileName;
    return recording_ + "/" + name;
  }
  int Print(QWidget*, QPrinter& printer) override {
    printer.setOutputFileName(recording_ + "/printed.pdf");
    return 1;
  }

 private:
  struct Line {
    QString Command;
    double Whole;
    double Gap;
  };

  void Measure(const QString& command, const std::function<void()>& work) {
    std::fprintf(stderr, "%s\n", qPrintable(command));
    pulse_.Begin();
    work();
    const double whole = pulse_.Elapsed();
    pulse_.Watch(kGoesOn);
    lines_.push_back({command, whole, pulse_.Longest()});
  }

  template <class Control = QWidget>
  Control* Get(const QString& name) {
    auto* control = form_.findChild<Control*>(name);
    if (!control) qFatal("no control %s", qPrintable(name));
    return control;
  }
  void Press(const QString& name) { Get<QAbstractButton>(name)->click(); }

  QWidget* Projection() {
    for (QWidget* window : QApplication::topLevelWidgets())
      if (window->objectName() == "Projections") return window;
    return nullptr;
  }

  /// Presses every button and box of a window except some; of a control array the first two.
  void PressAll(QWidget* window, QStringList without) {
    std::map<QString, QPointer<QAbstractButton>> buttons;
    static const QRegularExpression later("\\(([03-9]|\\d\\d+)\\)$");
    for (auto* button : window->findChildren<QAbstractButton*>())
      if (button->window() == window && !without.contains(button->objectName()) && !button->text().contains("lose") &&
          !button->objectName().startsWith("qt_") && !button->objectName().contains(later))
        buttons[button->objectName() + button->text()] = button;
    for (const auto& [name, button] : buttons)
      if (button && button->isEnabled())
        Measure(window->objectName() + " " + name, [&button = button] { button->click(); });
  }

  /// They stay open and follow everything from then on.
  void OpenLiveWindows() {
    for (auto* window : Projection()->findChildren<LiveWindow*>())
      Measure("open " + window->objectName(), [window] {
        window->setFloating(true);
        window->show();
      });
    Measure("spatial autocorrelation in Cell",
            [this] { Projection()->findChild<QAbstractButton*>("chkSpatialLags")->setChecked(true); });
  }

  void LookUpTimes() {
    for (const char* box : {"txtStartEvent", "txtStartTime", "txtEndEvent", "txtEndTime"})
      Measure(QString("look up ") + box, [&] {
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QApplication::sendEvent(Get(box), &enter);
      });
  }

  void Mouse(QWidget* at, QEvent::Type type, Qt::MouseButton button, QPointF position) {
    QMouseEvent event(type, position, at->mapToGlobal(position), button, button, Qt::NoModifier);
    QApplication::sendEvent(at, &event);
  }

  /// Sets the session's cut via a boundaries file.
  void ReadCut(const char* name, const std::function<void(Session&)>& cut) {
    session_.Clusters = {};
    session_.ClusterDefined = {};
    cut(session_);
    Press("cmdWriteCBFile");
    Measure(QString("Read CBFile, ") + name, [&] { Press("cmdReadCBFile"); });
  }

  /// Cluster 1 has every point, 2 to 5 fewer and fewer; 1 is chosen.
  void CutSome() {
    ReadCut("5 clusters", [](Session& session) {
      for (int c = 1; c <= 5; ++c) {
        Boundary& boundary = session.Clusters[c].Boundaries[0];
        boundary = RoundAll(session, 0, 1);
        for (Vertex& vertex : boundary.Vertices) vertex = {vertex.X / static_cast<float>(c), vertex.Y};
        session.Clusters[c].BoundaryCount = 1;
        session.ClusterDefined[c] = true;
      }
    });
    Press("lblChooseCluster(1)");
  }

  void LookAtProjection() {
    QWidget* surface = Projection()->findChild<QWidget*>("surface");
    const QPointF middle(surface->rect().center());
    for (int size = 0; size < 5; ++size) Measure("larger points", [&] { Press("cmdPointUp"); });
    Measure("resize the projection", [&] { Projection()->resize(1300, 1000); });
    Press("lblChooseCluster(1)");
    for (int k = 0; k < 50; ++k) {
      const QPointF at = middle + (k % 2 ? 300 : 100) * QPointF(std::cos(k * M_PI / 25), std::sin(k * M_PI / 25));
      Measure("a corner", [&] { Mouse(surface, QEvent::MouseButtonPress, Qt::LeftButton, at); });
      Measure("move the mouse", [&] { Mouse(surface, QEvent::MouseMove, Qt::NoButton, at); });
    }
    Measure("close a star", [&] { Mouse(surface, QEvent::MouseButtonPress, Qt::RightButton, middle); });
    Press("optZoom");
    Measure("drag to zoom", [&] {
      Mouse(surface, QEvent::MouseButtonPress, Qt::LeftButton, middle);
      Mouse(surface, QEvent::MouseMove, Qt::LeftButton, 1.4 * middle);
      Mouse(surface, QEvent::MouseButtonRelease, Qt::LeftButton, 1.4 * middle);
    });
    for (int times = 0; times < 18; ++times) Measure("scale up", [&] { Press("cmdScaleUp"); });
    Press("optDrawClustBounds");
    Press("cmdScaleDefaults");
  }

  void WorkOnLargestCut() {
    ReadCut("the largest cut", [](Session& session) {
      for (int c = 1; c <= kClusters; ++c) {
        session.Clusters[c].BoundaryCount = kBoundariesPerCluster;
        for (int b = 0; b < kBoundariesPerCluster; ++b)
          session.Clusters[c].Boundaries[b] = RoundAll(session, b % 4, (b + 1) % 4);
        session.ClusterDefined[c] = true;
      }
    });
    Press("lblChooseCluster(1)");
    Get<QLineEdit>("txtCopyCluster")->setText("30");
    for (const char* command :
         {"cmdRedraw", "cmdClusterInfo", "lblChooseCluster(2)", "cmdShowOverlap", "cmdShowOverlap", "cmdCopyCluster",
          "cmdDeleteCluster", "cmdUndo", "cmdDeleteClusterBounds", "cmdUndo", "cmdDeleteAllClusters", "cmdUndo",
          "cmdWriteCBFile", "cmdWriteClustFile", "cmdAutoCorr", "cmdLoadPoints"})
      Measure(QString("largest cut: ") + command, [&] { Press(command); });
  }

  /// Presses a button that opens a window, then every control in that window.
  void LookAt(const char* button) {
    Press("lblChooseCluster(1)");
    const QWidgetList before = QApplication::topLevelWidgets();
    Measure(button, [&] { Press(button); });
    QList<QPointer<QWidget>> opened;
    for (QWidget* window : QApplication::topLevelWidgets())
      if (!before.contains(window) && window->isVisible()) opened << window;
    for (const QPointer<QWidget>& window : opened) {
      const QString name = window->objectName();
      Measure(name + " resized", [&] { window->resize(window->size() * 1.2); });
      Measure(name + " painted", [&] { window->repaint(); });
      PressAll(window, {"cmdExit", "cmdClNoteExit", "cmdCancel"});
      if (window) Measure(name + " closed", [&] { window->close(); });
    }
  }

  void DefineEpochs() {
    Measure("Define Epochs", [&] { Press("cmdDefineEpochs"); });
    auto* epochs = Get("TimeEpochs");
    for (const char* button : {"cmdLoadEventsFile", "chkFilter"})
      Measure(QString("TimeEpochs ") + button, [&] { epochs->findChild<QAbstractButton*>(button)->click(); });
    const auto type = [&](const char* box, const QString& text) { epochs->findChild<QLineEdit*>(box)->setText(text); };
    type("txtEpochLabel(0)", "all");
    type("txtStart(0)", Get<QLineEdit>("txtStartTime")->text());
    type("txtEnd(0)", Get<QLineEdit>("txtEndTime")->text());
    for (const char* button : {"cmdFindEventNumbers", "cmdSave"})
      Measure(QString("TimeEpochs ") + button, [&] { epochs->findChild<QAbstractButton*>(button)->click(); });
    form_.findChild<QAction*>("mnuLoadMultipleEpochs")->trigger();
    auto* several = Get("frmLoadMultipleEpochs");
    several->findChild<QAbstractButton*>("chkSelectEpoch(0)")->setChecked(true);
    Measure("Load Multiple Epochs", [&] { several->findChild<QAbstractButton*>("cmdLoad")->click(); });
    Measure("close Load Multiple Epochs", [&] { several->close(); });
  }

  void Print() {
    std::printf("| command, %zu spikes | ms | longest without a response, ms |\n| --- | --- | --- |\n", rows_);
    std::sort(lines_.begin(), lines_.end(), [](const Line& a, const Line& b) { return a.Gap > b.Gap; });
    for (const Line& line : lines_)
      if (line.Gap >= kTold) std::printf("| %s | %.0f | %.0f |\n", qPrintable(line.Command), line.Whole, line.Gap);
    std::printf("\nThe longest of %zu commands: %.0f ms, %s\n", lines_.size(), lines_[0].Gap,
                qPrintable(lines_[0].Command));
  }

  std::vector<Line> lines_;
  Pulse pulse_;
  Session session_;
  size_t rows_ = static_cast<size_t>(Spikes());
  Main_Form form_{session_, *this};
};

}  // namespace

}  // namespace pallomir::bench

int main(int argumentCount, char** arguments) {
  return pallomir::bench::RunOnRecording<pallomir::bench::Driver>(argumentCount, arguments);
}
