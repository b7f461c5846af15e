// Points into a picture of 900 x 900 pixels.

#include <QImage>
#include <QPainter>

#include "clusters/classify.h"
#include "controls/toolkit_values.h"
#include "projection/draw_points.h"
#include "support.h"

namespace pallomir::bench {

namespace {

constexpr int kSide = 900;

/// The loaded points with one cluster cut out, in a view of MPeak-1 and MPeak-2.
Session& CutSession() {
  Session& session = LoadedSession();
  session.Clusters = {};
  session.Clusters[1].BoundaryCount = 1;
  session.Clusters[1].Boundaries[0] = Polygon(5);
  ClassifyAllClusters(session);
  session.RandomX = session.RandomY = false;
  return session;
}

void DrawOurs(benchmark::State& state, const Session& session, float pointSize, const DrawSettings& settings = {}) {
  UniformNumbers random(1);
  const View view = ViewOf(session, kSide, kSide);
  Raster raster(kSide, kSide, PointRadius(pointSize, kSide), 1);
  size_t drawn = 0;
  for (auto _ : state) {
    raster.Clear();
    drawn = DrawPoints(session, view, settings, 0, session.Points.Rows(), random, raster);
  }
  benchmark::DoNotOptimize(drawn);
}

void DrawPixels(benchmark::State& state) {
  DrawOurs(state, CutSession(), 0.5F);
}
BENCHMARK(DrawPixels)->Name("draw pixels/ours")->Unit(benchmark::kMillisecond)->MinTime(0.3);

/// Ten ranges of records are looked at for every point, and leave all of them.
void DrawTenEpochs(benchmark::State& state) {
  DrawSettings settings;
  settings.RecordRanges.emplace(10, std::pair(-1e9F, 1e9F));
  DrawOurs(state, CutSession(), 0.5F, settings);
}
BENCHMARK(DrawTenEpochs)->Name("draw pixels, of ten epochs/ours")->Unit(benchmark::kMillisecond)->MinTime(0.3);

void DrawSpread(benchmark::State& state) {
  Session& session = CutSession();
  session.RandomX = session.RandomY = true;
  DrawOurs(state, session, 0.5F);
}
BENCHMARK(DrawSpread)->Name("draw pixels, spread in X and Y/ours")->Unit(benchmark::kMillisecond)->MinTime(0.3);

void DrawDiscs(benchmark::State& state) {
  DrawOurs(state, CutSession(), 3);
}
BENCHMARK(DrawDiscs)->Name("draw discs of size 3/ours")->Unit(benchmark::kMillisecond)->MinTime(0.3);

/// A painter and a pen for every point.
void DrawNaive(benchmark::State& state, bool discs) {
  const Session& session = CutSession();
  const View view = ViewOf(session, kSide, kSide);
  const auto x = session.Points.Column(0), y = session.Points.Column(1);
  const auto cluster = session.Points.Slot(0);
  const double radius = PointRadius(3, kSide);
  QImage image(kSide, kSide, QImage::Format_RGB32);
  for (auto _ : state) {
    image.fill(Qt::black);
    QPainter painter(&image);
    for (size_t i = 0; i < session.Points.Rows(); ++i) {
      const QColor colour = ScreenColour(session.Colours[cluster[i]]);
      const QPointF at(view.PixelX(x[i]), view.PixelY(y[i]));
      painter.setPen(QPen(colour));
      if (discs) {
        painter.setBrush(colour);
        painter.drawEllipse(at, radius, radius);
      } else {
        painter.drawPoint(at);
      }
    }
  }
}

void DrawNaivePixels(benchmark::State& state) {
  DrawNaive(state, false);
}
BENCHMARK(DrawNaivePixels)->Name("draw pixels/naive")->Unit(benchmark::kMillisecond)->MinTime(0.3);
BENCHMARK(DrawNaivePixels)->Name("draw pixels, spread in X and Y/naive")->Unit(benchmark::kMillisecond)->MinTime(0.3);

void DrawNaiveDiscs(benchmark::State& state) {
  DrawNaive(state, true);
}
BENCHMARK(DrawNaiveDiscs)->Name("draw discs of size 3/naive")->Unit(benchmark::kMillisecond)->MinTime(0.3);

}  // namespace

}  // namespace pallomir::bench
