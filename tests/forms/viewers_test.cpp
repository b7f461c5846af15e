// The result windows, shown from result files as the analyses write them.

#include <QSvgRenderer>

#include "form_tests.h"
#include "gui/controls/save_image.h"
#include "gui/controls/titles.h"
#include "gui/viewers/colour_scales.h"
#include "gui/viewers/desktop_components.h"
#include "gui/viewers/figures.h"
#include "gui/viewers/map_cells.h"
#include "gui/viewers/window_places.h"
#include "pallomir/files/error.h"
#include "pallomir/results/direction_file.h"
#include "pallomir/results/map_file.h"
#include "program.h"
#include "support/recording_world.h"
#include "support/temporary_folder.h"

using namespace pallomir;

namespace {

/// The components with answers for their dialogs, and the window shown last.
struct Desk {
  TemporaryFolder Folder;
  RecordingWorld TheWorld;
  ScriptedDialogs Answers;
  QWidget Parent;
  Session Shared = [] {
    Session session;
    session.File.Path = "C:/data/TT1/TT1.Ntt.parms";
    return session;
  }();
  DesktopComponents Make{Shared, TheWorld, Answers, &Parent, [] { return nullptr; }};
  QSet<QWidget*> Known;

  QWidget* Opened() {
    QApplication::processEvents();
    for (QWidget* window : QApplication::topLevelWidgets())
      if (window->objectName() == "ResultWindow" && window->isVisible() && !Known.contains(window)) {
        Known.insert(window);
        return window;
      }
    qFatal("no window was opened");
  }
  QWidget* ShowMap(const MapResult& result, const char* colours = "Color") {
    WriteMapFile(result, Folder / "tmp.rmap");
    Make.MakeMapEngine()->ShowMap(Folder / "tmp.rmap", "Single", colours, "Cluster 7");
    return Opened();
  }
};

QCustomPlot* Plot(const QWidget* window) {
  return window->findChild<QCustomPlot*>("plot");
}

QString Said(const QWidget* window, const char* name) {
  return window->findChild<QLabel*>(name)->text();
}

QString Figures(const QWidget* window) {
  return Plot(window)->accessibleDescription();
}

/// The position on the plot of a value in the first axis rectangle.
QPoint At(const QWidget* window, double x, double y) {
  const QCPAxisRect* rect = Plot(window)->axisRect(0);
  return {qRound(rect->axis(QCPAxis::atBottom)->coordToPixel(x)), qRound(rect->axis(QCPAxis::atLeft)->coordToPixel(y))};
}

QColor ColourAt(const QWidget* window, double x, double y) {
  return Plot(window)->grab().toImage().pixelColor(At(window, x, y));
}

QString Hover(const QWidget* window, QPoint at) {
  QMouseEvent move(QEvent::MouseMove, at, Plot(window)->mapToGlobal(at), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(Plot(window), &move);
  return Said(window, "readOut");
}

/// Two rows of three bins of 10 pixels, 2.5 cm, from (40, 80) pixels on; the first is the peak, the last not visited.
MapResult SmallMap() {
  MapResult result;
  result.Grid = {3, 2, 40, 80, 10, {8, 4, 2, 0, 1, kNotKnown}};
  result.PixelsPerCm = 4;
  result.MeanRate = 1.25;
  result.Information = 0.5;
  result.Used.Spikes = 15;
  result.Used.SpikesUsed = 12;
  return result;
}

QByteArray Bytes(const std::string& path) {
  QFile file(QString::fromStdString(path));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

class ViewersTest : public QObject {
  Q_OBJECT

 private slots:
  void MapsAreOrientedAsTheCameraSeesThem() {
    Desk desk;
    QWidget* window = desk.ShowMap(SmallMap());
    QCOMPARE(window->windowTitle(), "Cluster 7 - Rate map — TT1");
    QCOMPARE(Figures(window), "Peak 8 spikes/s    Mean 1.25 spikes/s    Spatial information 0.5 bits/spike");
    QCOMPARE(Said(window, "usage"), "Used 12 of 15 spikes.");
    // From 10 to 17.5 cm and from 20 to 25 cm, with the smallest y at the top and square bins.
    QVERIFY(At(window, 11, 21).y() < At(window, 11, 24).y());
    const QRect plotted = Plot(window)->axisRect(0)->rect();
    QVERIFY(std::abs(plotted.width() - 1.5 * plotted.height()) <= 2);
    QCPColorGradient even = GradientOf(ColourScale::Even);
    QCOMPARE(ColourAt(window, 11, 21).rgb(), even.color(8, {0, 8}));
    QCOMPARE(ColourAt(window, 11, 24).rgb(), even.color(0, {0, 8}));
    QCOMPARE(ColourAt(window, 16, 24), QColor(Qt::white));
    QCOMPARE(Hover(window, At(window, 13.8, 21.2)), "x 13.8, y 21.2 cm: 4 spikes/s");
    QVERIFY(Hover(window, At(window, 16, 24)).endsWith("cm: not visited"));
    QVERIFY(Hover(window, {1, 1}).startsWith("The wheel zooms"));
  }

  void WindowsAndFilesAreNamedAfterTheTetrode() {
    Session session;
    QCOMPARE(TitleWithTetrode("Projections", TetrodeOf(session)), "Projections");
    session.File.Path = "C:/data/spikes.parms";
    QCOMPARE(TetrodeOf(session), "spikes.parms");
    session.File.Path = "C:/data/TT1.ntt.parms";
    QCOMPARE(TitleWithTetrode("Projections", TetrodeOf(session)), "Projections — TT1");
    QCOMPARE(TitleWithTetrode("Waveforms", TetrodeOf(session), 2), "Waveforms — TT1, cluster 2");
    QCOMPARE(FileNameWithTetrode("TT1", {"Cluster 2", "Log ISI"}), "TT1 cluster 2 log ISI");
  }

  void LackOfMemoryIsReported() {
    const auto tooLarge = [] { MakeImage({INT_MAX / 8, INT_MAX / 8}, QImage::Format_RGB32); };
    QVERIFY_THROWS_EXCEPTION(CommandError, tooLarge());
  }

  void ColoursAreChosen() {
    Desk desk;
    QWidget* window = desk.ShowMap(SmallMap(), "Gray");
    auto* choice = window->findChild<QComboBox*>("cboColours");
    QCOMPARE(choice->currentText(), "Gray");
    const QColor peak = ColourAt(window, 11, 21), low = ColourAt(window, 11, 24);
    QVERIFY(peak.saturation() == 0 && low.saturation() == 0 && peak.lightness() < low.lightness());
    choice->setCurrentText("Jet");
    QCOMPARE(ColourAt(window, 11, 21), QColor(128, 0, 0));
    // Equal steps of the even scale are equal steps in lightness, close to the L* of the colour.
    for (const ColourScale scale : {ColourScale::Even, ColourScale::Heat, ColourScale::Gray}) {
      QCPColorGradient gradient = GradientOf(scale);
      std::vector<double> lightness;
      for (int k = 0; k <= 8; ++k) {
        const QColor colour = gradient.color(k, {0, 8});
        const auto linear = [](double value) { return std::pow(value, 2.2); };
        lightness.push_back(std::cbrt(0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
                                      0.0722 * linear(colour.blueF())));
      }
      const double step = (lightness.back() - lightness.front()) / 8;
      for (int k = 0; k < 8; ++k) QVERIFY((lightness[k + 1] - lightness[k]) / step > 0.5);
    }
  }

  void CorrelationsHaveAFixedScaleAndAMarkedCentre() {
    Desk desk;
    MapResult result = SmallMap();
    result.Kind = MapKind::SpatialAutocorrelation;
    result.Grid = {5, 3, -25, -15, 10, std::vector<double>(15, 0.25)};
    result.Grid.Values[7] = 1;
    result.Grid.Values[0] = kNotKnown;
    QWidget* window = desk.ShowMap(result);
    QCOMPARE(window->windowTitle(), "Cluster 7 - Spatial autocorrelation — TT1");
    QVERIFY(qobject_cast<QCPColorMap*>(Plot(window)->plottable(0))->dataRange() == QCPRange(-1, 1));
    QCOMPARE(ColourAt(window, -2, -1.2), ColourAt(window, -2.4, 1.2));
    QCOMPARE(ColourAt(window, -6, -3.4), QColor(Qt::white));
    QVERIFY(ColourAt(window, 0, 0).lightness() < 40);  // the cross
    QCOMPARE(Hover(window, At(window, 2.6, 2.6)), "x 2.6, y 2.6 cm: r 0.25");
  }

  void OneLongStayDoesNotDarkenTheOtherBins() {
    Desk desk;
    MapResult result = SmallMap();
    result.Kind = MapKind::Occupancy;
    result.Grid = {100, 2, 0, 0, 10, std::vector<double>(200, 0.5)};
    result.Grid.Values[0] = 3.25;
    result.Grid.Values[1] = 4000;
    result.Grid.Values[2] = 0;
    QCOMPARE(ColoursEnd(result), 0.5);
    for (int k = 10; k < 13; ++k) result.Grid.Values[k] = 3.25;
    QCOMPARE(ColoursEnd(result), 3.25);
    QWidget* window = desk.ShowMap(result);
    auto* scale = Plot(window)->findChild<QCPColorScale*>();
    QCOMPARE(scale->dataRange().upper, 3.25);
    QVERIFY(scale->axis()->tickVectorLabels().contains(QString::fromUtf8("≥ 3.25 s")));
    QVERIFY(Hover(window, At(window, 3.7, 1)).endsWith(": " + Figure(4000) + " s"));
    result.Kind = MapKind::Rate;
    QCOMPARE(ColoursEnd(result), 4000.0);
  }

  void WindowsOpenWhereTheyCoverLeast() {
    const QRect room(0, 0, 2000, 1000), controls(0, 0, 500, 900);
    const QSize wanted(600, 700), smallest(400, 450);
    std::vector<Neighbour> there = {{controls}};
    const auto next = [&] { return FreePlace(room, controls, wanted, smallest, there); };
    QCOMPARE(next(), QRect(1400, 0, 600, 700));
    there.push_back({next()});
    QCOMPARE(next(), QRect(800, 0, 600, 700));
    there.push_back({next()});
    QVERIFY(!next().intersects(controls));  // no room is left: a step below the first
    QCOMPARE(next().topRight(), QPoint(1999 - 28, 28));
    // The projection is covered only if even a smaller window has no room beside it.
    const std::pair<int, QRect> projections[] = {{1000, {1520, 0, 480, 560}},  // from x 500 on, so wide
                                                 {1100, {1600, 0, 400, 455}},
                                                 {1200, {1400, 0, 600, 700}}};
    for (const auto& [width, position] : projections) {
      there = {{controls}, {QRect(500, 0, width, 900), false}};
      QCOMPARE(next(), position);
    }
  }

  void AllAreLaidOutSideBySideAndClosed() {
    Desk desk;
    std::vector<QPointer<QWidget>> windows;
    for (int k = 0; k < 3; ++k) windows.push_back(desk.ShowMap(SmallMap()));
    QTest::keyClick(windows[2], Qt::Key_W, Qt::ControlModifier);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!windows[2] && windows[0]->isVisible());
    QVERIFY(windows[0]->geometry().intersects(windows[1]->geometry()));  // 800 pixels have no room for two
    windows[0]->findChild<QAction*>("mnuTile")->trigger();
    QVERIFY(!windows[0]->geometry().intersects(windows[1]->geometry()));
    windows[1]->findChild<QAction*>("mnuCloseAll")->trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!windows[0] && !windows[1]);
  }

  void TrainsAreMirroredAndCounted() {
    Desk desk;
    desk.Folder.Put("cl", "0\r\n1000000\r\n");
    desk.Folder.Put("t", "1000\r\n4500\r\n14500\r\n15500\r\n");
    const auto plot = desk.Make.MakeTrainPlot();
    plot->PlotAutoCorr(desk.Folder / "cl", desk.Folder / "t", desk.Folder / "tmp.acorr", "Single", "Cluster 7");
    QWidget* near = desk.Opened();
    QCOMPARE(near->windowTitle(), "Cluster 7 - Autocorrelation — TT1");
    QCOMPARE(Figures(near), "4 spikes    1 pair closer than 2 ms");
    QCOMPARE(Hover(near, At(near, 3.5, 0.5)), "3 to 4 ms: 1 pair");
    QCOMPARE(Hover(near, At(near, -3.5, 0.5)), "-4 to -3 ms: 1 pair");
    QCOMPARE(Hover(near, At(near, -5.5, 0.5)), "-6 to -5 ms: 0 pairs");
    plot->PlotLogISI(desk.Folder / "cl", desk.Folder / "t", desk.Folder / "tmp.isi", "Single", "Cluster 7");
    QWidget* isi = desk.Opened();
    QCOMPARE(Figures(isi),
             "3 intervals    33.3 % (1) below 2 ms; What share of foreign spikes this means depends on the rate: see "
             "Analysis "
             "Report; Outside the axis: 0 below 0.1 ms, 0 of 100 s and more");
    QCOMPARE(Hover(isi, At(isi, 11, 0.5)), "10 to 12.6 ms: 1 interval");
  }

  void DirectionsAreCounterClockwise() {
    Desk desk;
    DirectionResult result;
    result.Tuning.Dwell.assign(60, 2);
    result.Tuning.Rate.assign(60, 0);
    result.Tuning.Rate[15] = 10;  // 90 to 96 degrees
    result.Tuning.Spikes[15] = 20;
    result.Tuning.Rate[40] = kNotKnown;
    result.Tuning.Dwell[40] = 0;
    result.OfTravel = true;
    WriteDirectionFile(result, desk.Folder / "t.dir");
    desk.Make.MakeDirectionPlot()->ShowDirection(desk.Folder / "t.dir", "Single", "Cluster 7");
    QWidget* window = desk.Opened();
    QVERIFY(Figures(window).startsWith("R 1.00 towards 93°    Peak 10 spikes/s    Coverage 98 %; Direction of travel"));
    QVERIFY(At(window, 0, 1).y() < At(window, 0, 0).y());
    QCOMPARE(Hover(window, At(window, -0.03, 0.6)), "90° to 96°: 10 spikes/s, 20 spikes in 2 s");
    QCOMPARE(Hover(window, At(window, -0.27, -0.5)), "240° to 246°: no dwell time");
    QVERIFY(Hover(window, At(window, 1, 1)).startsWith("The wheel zooms"));
  }

  void ZoomAndMoveStayWithinTheResult() {
    Desk desk;
    QWidget* window = desk.ShowMap(SmallMap());
    QWidget* second = desk.ShowMap(SmallMap());
    QVERIFY(window->isVisible() && window->pos() != second->pos());
    const QCPAxis* x = Plot(window)->axisRect(0)->axis(QCPAxis::atBottom);
    QTest::keyClick(window, Qt::Key_Plus);
    QTest::keyClick(window, Qt::Key_Plus);
    const QCPRange zoomed = x->range();
    QVERIFY(zoomed.size() < 5);
    for (int k = 0; k < 20; ++k) QTest::keyClick(window, Qt::Key_Right);
    QCOMPARE(x->range().upper, 17.5);
    QVERIFY(std::abs(x->range().size() - zoomed.size()) < 1e-9);
    for (int k = 0; k < 20; ++k) QTest::keyClick(window, Qt::Key_Minus);
    QVERIFY(x->range() == QCPRange(10, 17.5));
    QTest::keyClick(window, Qt::Key_Plus);
    QTest::mouseDClick(Plot(window), Qt::LeftButton, {}, At(window, 12, 22));
    QVERIFY(x->range() == QCPRange(10, 17.5));
    QPointer<QWidget> closing(window);
    QTest::keyClick(window, Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!closing);
  }

  void PicturesAndNumbersAreSaved() {
    Desk desk;
    QWidget* window = desk.ShowMap(SmallMap());
    const QByteArray shown = Bytes(desk.Folder / "tmp.rmap");
    desk.Folder.Put("tmp.rmap", "the next map");
    const auto save = [&](const char* button, const char* name) {
      desk.Answers.FilesToOpen = {QString::fromStdString(desk.Folder / name)};
      window->findChild<QPushButton*>(button)->click();
      return Bytes(desk.Folder / name);
    };
    QCOMPARE(save("cmdSaveData", "kept.rmap"), shown);
    QCOMPARE(desk.Answers.Asked.FileName, "TT1 cluster 7 rate map.rmap");
    const QSize size = Plot(window)->size();
    QCOMPARE(QImage::fromData(save("cmdSavePicture", "a.png")).size(), 3 * size);
    QSvgRenderer svg(save("cmdSavePicture", "a.svg"));
    QVERIFY(svg.isValid() && svg.viewBox().size() == size);
    const QByteArray pdf = save("cmdSavePicture", "a.PDF");
    QVERIFY(pdf.startsWith("%PDF") && pdf.trimmed().endsWith("%%EOF"));
    QVERIFY(save("cmdSavePicture", "a.bmp").isEmpty());
    QVERIFY(save("cmdSaveData", "no folder/a").isEmpty());
    QCOMPARE(desk.Answers.Messages.size(), 2);
    QVERIFY(desk.Answers.Messages[0].contains(".png, .svg or .pdf"));
    window->findChild<QPushButton*>("cmdCopy")->click();
    QCOMPARE(QApplication::clipboard()->image().size(), 3 * size);
  }

  void EmptyResultsSayWhy() {
    Desk desk;
    MapResult map = SmallMap();
    map.Grid = {};
    map.Grid.Bin = 10;
    map.Explanation = "Pos.p contains no position samples.";
    QWidget* window = desk.ShowMap(map);
    QCOMPARE(Figures(window), "Pos.p contains no position samples.");
    QCOMPARE(Hover(window, Plot(window)->rect().center()), "");
    // The whole sentence is in the plot.
    const auto* sentence = qobject_cast<QCPTextElement*>(Plot(window)->plotLayout()->elements(true).last());
    QVERIFY(sentence && sentence->rect().height() > 200);
    map = SmallMap();
    map.Grid.Values.assign(6, kNotKnown);
    QCOMPARE(Figures(desk.ShowMap(map)), "The map has no bin with a value.");
    map.Grid = {1, 1, 0, 0, 10, {0}};
    map.Information = map.MeanRate = kNotKnown;
    QCOMPARE(Figures(desk.ShowMap(map)), "Peak 0 spikes/s");
    desk.Folder.Put("cl", "0\r\n1000000\r\n");
    desk.Folder.Put("t", "");
    const auto plot = desk.Make.MakeTrainPlot();
    plot->PlotLogISI(desk.Folder / "cl", desk.Folder / "t", desk.Folder / "tmp.isi", "Single", "Cluster 7");
    QVERIFY(Figures(desk.Opened()).endsWith("."));
  }
};

static const bool added = AddFormTest<ViewersTest>();

#include "viewers_test.moc"
