// How soon the windows that show the cut show a new one: 30 clusters are cut, then a polygon is closed again and again,
// with each window open alone and with all of them.
//   pallomir-live [RECORDING]
// RECORDING is a sample recording; without it, one of PALLOMIR_BENCH_SPIKES (a million) spikes is made.

#include <QtWidgets>
#include <algorithm>
#include <cstdio>
#include <functional>

#include "gaps/on_recording.h"
#include "gaps/pulse.h"
#include "gui/forms/main_form.h"
#include "gui/live/live_windows.h"

namespace pallomir::bench {

namespace {

constexpr int kTimes = 5;
constexpr int kRecut = 15;  // the cluster whose polygon is drawn again

class Driver : public SampleDialogs {
 public:
  using SampleDialogs::SampleDialogs;

  bool Run() {
    if (!form_.Form_Load()) return false;
    form_.show();
    Press("cmdLoadPoints");
    for (QWidget* window : QApplication::topLevelWidgets())
      if (window->objectName() == "Projections") host_ = window;
    live_ = host_->findChild<LiveWindows*>();
    CutThirty();
    std::printf(
        "| from closing a polygon, %zu spikes, 30 clusters | ms | longest without a response, ms |\n"
        "| --- | --- | --- |\n",
        session_.Points.Rows());
    const auto shown = [] { return true; };
    Measure("the projection, no other window", {}, shown);
    Measure("Pairs", {"Pairs"}, shown);
    Measure("counts of Clusters", {"Clusters"}, shown);
    Measure("Cell, without isolation", {"Cell"}, [this] {
      const MeasureParts fresh = live_->Cut().Clusters[kRecut].Fresh;
      return fresh[IndexOf(MeasurePart::Train)] && fresh[IndexOf(MeasurePart::Place)] &&
             fresh[IndexOf(MeasurePart::Waveform)];
    });
    Measure("Cell, all of it", {"Cell"}, [this] { return live_->Cut().Clusters[kRecut].Fresh.all(); });
    Measure("Correlograms", {"Correlograms"}, [this] { return PairsAreFresh(); });
    const QStringList all = {"Pairs", "Cell", "Clusters", "Correlograms", "Overlay"};
    Measure("the projection, all windows open", all, shown);
    Measure("everything in all windows", all,
            [this] { return live_->Cut().Clusters[kRecut].Fresh.all() && PairsAreFresh(); });
    form_.close();
    return true;
  }

 private:
  void Press(const QString& name) { form_.findChild<QAbstractButton*>(name)->click(); }

  bool PairsAreFresh() const {
    const auto& pairs = live_->Cut().Pairs;
    return std::all_of(pairs.begin(), pairs.end(), [](const auto& pair) { return pair.second.Fresh; });
  }

  /// Thirty clusters of equally many spikes: slices of the first peak.
  void CutThirty() {
    std::vector<float> peaks(session_.Points.Column(0).begin(), session_.Points.Column(0).end() - 1);
    std::sort(peaks.begin(), peaks.end());
    const auto quantile = [&](int k) { return peaks[(peaks.size() - 1) * static_cast<size_t>(k) / 30]; };
    for (int c = 1; c <= kClusters; ++c) {
      Boundary& boundary = session_.Clusters[c].Boundaries[0];
      const float left = quantile(c - 1), right = quantile(c), top = 1.1F * session_.DataMaximum[1];
      boundary = {0, 1, 4, {}};
      const Vertex corners[] = {{left, -top}, {right, -top}, {right, top}, {left, top}};
      std::copy(std::begin(corners), std::end(corners), boundary.Vertices.begin());
      session_.Clusters[c].BoundaryCount = 1;
      session_.ClusterDefined[c] = true;
    }
    Press("cmdWriteCBFile");
    Press("cmdReadCBFile");
    left_ = quantile(kRecut - 1);
    right_ = quantile(kRecut);
    Press(QString("lblChooseCluster(%1)").arg(kRecut));
    QApplication::processEvents();
  }

  void Mouse(Qt::MouseButton button, double x, double y) {
    auto* surface = host_->findChild<QWidget*>("surface");
    const View view = ViewOf(session_, surface->width(), surface->height());
    const QPointF at(view.PixelX(x), view.PixelY(y));
    QMouseEvent event(QEvent::MouseButtonPress, at, surface->mapToGlobal(at), button, button, Qt::NoModifier);
    QApplication::sendEvent(surface, &event);
  }

  /// The median time from the click that closes a polygon until the windows were shown and it is `done`.
  void Measure(const QString& what, const QStringList& open, const std::function<bool()>& done) {
    for (LiveWindow* window : live_->Windows()) {
      window->setFloating(true);
      window->setVisible(open.contains(window->objectName()));
    }
    QApplication::processEvents();
    live_->Finish();
    std::vector<double> times;
    double longest = 0;
    for (int k = 0; k < kTimes; ++k) {
      const double high = session_.AxisMaximum[1];
      // Each time fewer spikes, so that everything about the cluster has to be measured anew.
      const double low = session_.AxisMinimum[1] + 0.04 * (k + 1) * (high - session_.AxisMinimum[1]);
      Mouse(Qt::LeftButton, left_, low);
      Mouse(Qt::LeftButton, right_, low);
      Mouse(Qt::LeftButton, right_, high);
      QApplication::processEvents();
      live_->Finish();
      times.push_back(CloseAndWait(left_, high, open.isEmpty(), done));
      longest = std::max(longest, pulse_.Longest());
    }
    std::sort(times.begin(), times.end());
    std::printf("| %s | %.0f | %.0f |\n", qPrintable(what), times[kTimes / 2], longest);
  }

  double CloseAndWait(double x, double y, bool alone, const std::function<bool()>& done) {
    bool shown = alone;
    const auto connection = QObject::connect(live_, &LiveWindows::Shown, [&shown] { shown = true; });
    pulse_.Begin();
    Mouse(Qt::RightButton, x, y);
    if (alone) QApplication::processEvents();
    while (!shown || !live_->Finished() || !done()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const double time = pulse_.Elapsed();
    QObject::disconnect(connection);
    return time;
  }

  Pulse pulse_;
  Session session_;
  Main_Form form_{session_, *this};
  QWidget* host_ = nullptr;
  LiveWindows* live_ = nullptr;
  float left_ = 0, right_ = 0;
};

}  // namespace

}  // namespace pallomir::bench

int main(int argumentCount, char** arguments) {
  return pallomir::bench::RunOnRecording<pallomir::bench::Driver>(argumentCount, arguments);
}
