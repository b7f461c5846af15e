// Drawing points into an image of 900 x 900 pixels.

#include <QImage>
#include <QPainter>
#include <array>
#include <cmath>
#include <map>
#include <vector>

#include "gui/controls/toolkit_values.h"
#include "pallomir/clusters/classify.h"
#include "pallomir/projection/draw_points.h"
#include "pallomir/projection/stroke.h"
#include "support.h"

namespace pallomir::bench {

namespace {

constexpr int kSide = 900;

/// The loaded points with one cluster, in a view of MPeak-1 and MPeak-2.
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

/// Tests every point against ten record ranges, all of which contain it.
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

/// Counting the points of each pixel, and painting the image.
void DrawDensityOurs(benchmark::State& state) {
  const Session& session = CutSession();
  const View view = ViewOf(session, kSide, kSide);
  UniformNumbers random(1);
  std::array<uint32_t, 256> palette{};
  palette.fill(0xFFFFFFFF);
  std::vector<uint32_t> pixels(size_t{kSide} * kSide);
  for (auto _ : state) {
    DensityRaster raster(kSide, kSide, 1, ColourCode(0));
    DrawDensity(session, {}, view, {}, 0, session.Points.Rows(), random, raster);
    raster.Paint({pixels.data(), kSide, kSide, kSide}, palette, 0xFF000000);
  }
  benchmark::DoNotOptimize(pixels.data());
}
BENCHMARK(DrawDensityOurs)->Name("draw density/ours")->Unit(benchmark::kMillisecond)->MinTime(0.3);

/// A map from pixel to the number of points of each cluster on it.
void DrawDensityNaive(benchmark::State& state) {
  const Session& session = CutSession();
  const View view = ViewOf(session, kSide, kSide);
  const auto x = session.Points.Column(0), y = session.Points.Column(1);
  const auto cluster = session.Points.Slot(0);
  QImage image(kSide, kSide, QImage::Format_RGB32);
  for (auto _ : state) {
    std::map<std::pair<int, int>, std::map<int, int>> counts;
    for (size_t i = 0; i < session.Points.Rows(); ++i)
      ++counts[{static_cast<int>(std::lround(view.PixelX(x[i]))), static_cast<int>(std::lround(view.PixelY(y[i])))}]
              [cluster[i]];
    image.fill(Qt::black);
    for (const auto& [at, clusters] : counts)
      for (const auto& [c, count] : clusters)
        if (image.rect().contains(at.first, at.second))
          image.setPixelColor(at.first, at.second,
                              ScreenColour(session.Colours[c]).darker(static_cast<int>(300 / (1 + std::log(count)))));
  }
}
BENCHMARK(DrawDensityNaive)->Name("draw density/naive")->Unit(benchmark::kMillisecond)->MinTime(0.3);

void DrawDiscs(benchmark::State& state) {
  DrawOurs(state, CutSession(), 3);
}
BENCHMARK(DrawDiscs)->Name("draw discs of size 3/ours")->Unit(benchmark::kMillisecond)->MinTime(0.3);

/// A painter and a pen for each point.
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

/// Boundaries of 51 corners: stars within the view, or reaching far beyond it on all sides.
std::vector<Boundary> Stars(float reach) {
  std::vector<Boundary> stars(30);
  for (size_t c = 0; c < stars.size(); ++c) {
    stars[c].VertexCount = kVerticesPerBoundary;
    for (int k = 0; k < kVerticesPerBoundary; ++k) {
      const double angle = 2 * M_PI * k * 20 / kVerticesPerBoundary + static_cast<double>(c);
      stars[c].Vertices[k] = {0.5F + reach * static_cast<float>(std::cos(angle)),
                              0.5F + reach * static_cast<float>(std::sin(angle))};
    }
  }
  return stars;
}

void StrokeStars(benchmark::State& state, float reach) {
  const std::vector<Boundary> stars = Stars(reach);
  const View view{0, 1, 1, 0, kSide, kSide};
  std::vector<uint32_t> pixels(size_t{kSide} * kSide);
  for (auto _ : state)
    for (const Boundary& star : stars)
      StrokePolygon({pixels.data(), kSide, kSide, kSide}, view, star.Vertices, true, 1.3, 0xFFFF0000);
  benchmark::DoNotOptimize(pixels.data());
}

void StrokeNear(benchmark::State& state) {
  StrokeStars(state, 0.4F);
}
BENCHMARK(StrokeNear)->Name("30 boundaries of 51 corners/ours")->Unit(benchmark::kMillisecond)->MinTime(0.3);

void StrokeFar(benchmark::State& state) {
  StrokeStars(state, 1e6F);
}
BENCHMARK(StrokeFar)->Name("30 boundaries that reach far out/ours")->Unit(benchmark::kMillisecond)->MinTime(0.3);

/// The toolkit's painter, for boundaries within the view.
void StrokeNaive(benchmark::State& state) {
  const std::vector<Boundary> stars = Stars(0.4F);
  const View view{0, 1, 1, 0, kSide, kSide};
  QImage image(kSide, kSide, QImage::Format_RGB32);
  for (auto _ : state) {
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::red, 1.3));
    for (const Boundary& star : stars) {
      QPolygonF polygon;
      for (const Vertex& vertex : star.Vertices) polygon << QPointF(view.PixelX(vertex.X), view.PixelY(vertex.Y));
      painter.drawPolygon(polygon);
    }
  }
}
BENCHMARK(StrokeNaive)->Name("30 boundaries of 51 corners/naive")->Unit(benchmark::kMillisecond)->MinTime(0.3);

}  // namespace

}  // namespace pallomir::bench
