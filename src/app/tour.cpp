// Does the program's main job on the real forms, as a user would with the mouse, and takes pictures of them:
//   pallomir-tour DATA_FOLDER PICTURE_FOLDER
// It is made for the sample recording, where the spike file tells which cell each spike came from.

#include <QtWidgets>
#include <cstdio>

#include "clusters/classify.h"
#include "controls/dialogs.h"
#include "controls/theme.h"
#include "files/bytes.h"
#include "files/file_reader.h"
#include "files/platform.h"
#include "forms/main_form.h"
#include "projection/view.h"

namespace pallomir {

namespace {

/// Chooses the parameter file of a folder, and prints what a message box would say.
class TourDialogs : public Dialogs {
 public:
  explicit TourDialogs(const QString& folder) : folder_(folder) {}
  void ShowMessage(QWidget*, const QString& text, const QString& title) override {
    std::printf("[%s] %s\n", qPrintable(title), qPrintable(text));
  }
  QString OpenFile(QWidget*, const FileDialogOptions&) override {
    const QStringList files = QDir(folder_).entryList({"*.Ntt.parms"}, QDir::Files);
    return files.isEmpty() ? QString() : folder_ + "/" + files.first();
  }
  QString SaveFile(QWidget*, const FileDialogOptions& options) override { return folder_ + "/" + options.FileName; }
  int Print(QWidget*, QPrinter&) override { return 0; }
  bool Confirm(QWidget*, const QString&) override { return true; }

 private:
  QString folder_;
};

class Tour {
 public:
  Tour(const QString& dataFolder, const QString& pictureFolder) : dialogs_(dataFolder), pictures_(pictureFolder) {
    QDir().mkpath(pictures_);
  }

  bool Run() {
    if (!form_.Form_Load()) return false;
    form_.show();
    // An offscreen display is smaller than a desk.
    form_.resize(574, 764);
    projections()->resize(700, 764);
    Press<QPushButton>("cmdLoadPoints");
    if (!PointsLoaded(session_)) return false;
    TakePicture("1-loaded");
    Press<QAbstractButton>("lblNewCluster(1)");
    // Round the interneuron of the sample, by its peaks on the first two wires ...
    DrawPolygon({{2500, 4100}, {3400, 4000}, {4500, 5300}, {4600, 6900}, {3300, 6900}, {2300, 5300}});
    TakePicture("2-first-boundary");
    Report();
    // ... and on the other two, where its neighbours there are far away.
    ShowParameters(2, 3);
    DrawPolygon({{2800, 7000}, {3800, 7000}, {5300, 9500}, {5300, 11500}, {4100, 11500}, {2700, 8600}});
    TakePicture("3-second-boundary");
    Report();
    CutCells();
    ShowParameters(0, 1);
    TakePicture("4-cut");
    MarkCentre();
    Grade(kPlaceCell, "Pretty Good", "one field, south-west");
    Press<QPushButton>("cmdWriteClustFile");
    Analyse(kPlaceCell, "cmdRateMap", "5-rate-map");
    Analyse(kPlaceCell, "cmdOccMap", "6-occupancy");
    Analyse(kGridCell, "cmdRateMap", "7-grid-rate-map");
    Analyse(kGridCell, "cmd2DAutoCorr", "8-grid-autocorrelation");
    Analyse(kHeadDirectionCell, "cmdDirection", "9-direction");
    Analyse(kPlaceCell, "cmdAutoCorr", "10-train-autocorrelation");
    Analyse(kPlaceCell, "cmdLogISI", "11-log-isi");
    Analyse(kPlaceCell, "cmdReport", "12-report");
    ShowWaveforms("13-waveforms");
    return PointsInCluster(session_, 1) > 0;
  }

 private:
  // Clusters by what the sample's cells are.
  static constexpr int kPlaceCell = 2, kGridCell = 3, kHeadDirectionCell = 4;

  /// A cloud by its extent on the four wires.
  struct Cloud {
    int Cluster;
    std::array<std::pair<float, float>, 4> Peaks;
  };
  static constexpr std::array<Cloud, 3> kClouds = {
      {{kPlaceCell, {{{2300, 4060}, {3430, 5430}, {2550, 4380}, {4270, 6520}}}},
       {kGridCell, {{{2720, 4540}, {2550, 4340}, {5080, 7570}, {4250, 6470}}}},
       {kHeadDirectionCell, {{{5550, 8150}, {3390, 5380}, {7120, 10390}, {3720, 5790}}}}}};

  void CutCells() {
    for (const int first : {0, 2}) {
      ShowParameters(first, first + 1);
      for (const Cloud& cloud : kClouds) {
        Choose(cloud.Cluster);
        const auto [left, right] = cloud.Peaks[first];
        const auto [low, high] = cloud.Peaks[first + 1];
        DrawPolygon({{left, low}, {right, low}, {right, high}, {left, high}});
      }
    }
  }

  void Choose(int c) {
    const bool shown = form_.findChild<QWidget*>(QString("lblChooseCluster(%1)").arg(c))->isVisible();
    Press<QAbstractButton>(QString(shown ? "lblChooseCluster(%1)" : "lblNewCluster(%1)").arg(c));
  }

  void MarkCentre() {
    ShowParameters(kPosX, kPosY);
    Press<QPushButton>("cmdWriteCenterFile");
    ClickAt({320, 240}, Qt::LeftButton);
    ShowParameters(0, 1);
  }

  void Grade(int c, const QString& grade, const QString& remarks) {
    Press<QPushButton>("cmdClNote");
    QWidget* notes = form_.findChild<QWidget*>("frmClNote");
    notes->findChild<QAbstractButton*>(QString("opt%1(%2)").arg(QString(grade).remove(' ')).arg(c))->click();
    notes->findChild<QPlainTextEdit*>("txtClRemarks")->setPlainText(remarks);
    notes->findChild<QAbstractButton*>("cmdAddRemarks")->click();
    Keep(notes->grab().toImage(), "14-notes");
    notes->findChild<QAbstractButton*>("cmdClNoteExit")->click();
  }

  /// Presses the button of an analysis and keeps a picture of the window that it opens.
  void Analyse(int c, const QString& button, const QString& step) {
    Choose(c);
    const QWidgetList before = QApplication::topLevelWidgets();
    Press<QPushButton>(button);
    for (QWidget* window : QApplication::topLevelWidgets())
      if (!before.contains(window) && window->isVisible()) {
        // Larger than they are on the offscreen display.
        window->resize(window->objectName() == "frmReport" ? QSize(1010, 740) : QSize(600, 680));
        QApplication::processEvents();
        Keep(window->grab().toImage(), step);
      }
  }

  void ShowWaveforms(const QString& step) {
    Choose(kHeadDirectionCell);
    Press<QPushButton>("cmdShowWaveforms");
    QWidget* waveforms = form_.findChild<QWidget*>("Waveforms");
    waveforms->findChild<QAbstractButton*>("chkOverlay")->click();
    waveforms->findChild<QComboBox*>("cboHeight")->setCurrentIndex(2);
    for (int i = 0; i < 100; ++i) waveforms->findChild<QAbstractButton*>("cmdForward")->click();
    // A drag round the wires that were recorded.
    QWidget* drawing = waveforms->findChild<QWidget*>("waveforms");
    Mouse(drawing, QEvent::MouseButtonPress, Qt::LeftButton, {1, 1});
    Mouse(drawing, QEvent::MouseButtonRelease, Qt::LeftButton, {drawing->width() - 2.0, drawing->height() * 0.1});
    Keep(waveforms->grab().toImage(), step);
  }

  void Keep(const QImage& picture, const QString& step) {
    const QString path = pictures_ + "/" + step + ".png";
    if (picture.save(path)) std::printf("Picture: %s\n", qPrintable(QDir::toNativeSeparators(path)));
  }

  template <class Control>
  void Press(const QString& name) {
    form_.findChild<Control*>(name)->click();
    QApplication::processEvents();
  }

  void ShowParameters(int x, int y) {
    form_.findChild<QListWidget*>("lstX_Axis")->setCurrentRow(x);
    auto* list = form_.findChild<QListWidget*>("lstY_Axis");
    const QPointF at = list->visualItemRect(list->item(y)).center();
    Mouse(list->viewport(), QEvent::MouseButtonPress, Qt::LeftButton, at);
    Mouse(list->viewport(), QEvent::MouseButtonRelease, Qt::LeftButton, at);
    QApplication::processEvents();
  }

  void DrawPolygon(std::initializer_list<Vertex> corners) {
    size_t left = corners.size();
    for (const Vertex& corner : corners) ClickAt(corner, --left ? Qt::LeftButton : Qt::RightButton);
    QApplication::processEvents();
  }

  /// Clicks into the projection, at values of its parameters.
  void ClickAt(const Vertex& value, Qt::MouseButton button) {
    QWidget* surface = projections()->findChild<QWidget*>("surface");
    const View view = ViewOf(session_, surface->width(), surface->height());
    const QPointF at(view.PixelX(value.X), view.PixelY(value.Y));
    Mouse(surface, QEvent::MouseMove, Qt::NoButton, at);
    Mouse(surface, QEvent::MouseButtonPress, button, at);
  }

  static void Mouse(QWidget* widget, QEvent::Type type, Qt::MouseButton button, QPointF at) {
    QMouseEvent event(type, at, widget->mapToGlobal(at), button, button, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
  }

  /// Both windows as they stand beside each other.
  void TakePicture(const QString& step) {
    QApplication::processEvents();
    const QPixmap controls = form_.grab(), view = projections()->grab();
    constexpr int kGap = 6;
    QImage picture(controls.width() + kGap + view.width(), std::max(controls.height(), view.height()),
                   QImage::Format_RGB32);
    picture.fill(QColor(150, 158, 170));
    QPainter painter(&picture);
    painter.drawPixmap(0, 0, controls);
    painter.drawPixmap(controls.width() + kGap, 0, view);
    painter.end();
    Keep(picture, step);
  }

  QWidget* projections() const {
    for (QWidget* window : QApplication::topLevelWidgets())
      if (window->objectName() == "Projections") return window;
    return nullptr;
  }

  /// How well cluster 1 holds the spikes of the cell that most of it came from, as the spike file tells.
  void Report() {
    const std::vector<uint32_t> cells = CellsOfSpikes();
    std::map<uint32_t, int64_t> inCluster, inAll;
    const PointTable& points = session_.Points;
    for (size_t i = 0; i < points.Rows() && i < cells.size(); ++i) {
      ++inAll[cells[i]];
      if (points.Memberships(i) > 0) ++inCluster[cells[i]];
    }
    const auto most = std::max_element(inCluster.begin(), inCluster.end(),
                                       [](const auto& a, const auto& b) { return a.second < b.second; });
    if (most == inCluster.end()) return;
    const double found = 100.0 * static_cast<double>(most->second) / static_cast<double>(inAll[most->first]);
    const auto size = static_cast<double>(PointsInCluster(session_, 1));
    std::printf("Cluster 1: %.0f spikes; %.1f %% of the spikes of cell %u, and %.1f %% of it from elsewhere.\n", size,
                found, most->first, 100 * (size - static_cast<double>(most->second)) / size);
  }

  /// The cell number of every record of the spike file beside the parameter file: u32 at byte 12 of its 304.
  std::vector<uint32_t> CellsOfSpikes() {
    std::string path = session_.File.Path;
    path.resize(path.size() - std::string_view(".parms").size());
    FileReader file(path);
    std::vector<uint32_t> cells;
    std::array<unsigned char, 304> record;
    for (uint64_t at = 16384; file.ReadUpTo(at, record.data(), record.size()) == record.size(); at += record.size())
      cells.push_back(LoadLittleEndian<uint32_t>(record.data() + 12));
    return cells;
  }

  Session session_;
  TourDialogs dialogs_;
  Main_Form form_{session_, dialogs_};
  QString pictures_;
};

}  // namespace

}  // namespace pallomir

int main(int argumentCount, char** arguments) {
  QApplication application(argumentCount, arguments);
  QApplication::setApplicationDisplayName("Pallomir");
  pallomir::ApplyTheme(application);
  if (argumentCount != 3) {
    std::fprintf(stderr, "usage: pallomir-tour DATA_FOLDER PICTURE_FOLDER\n");
    return 2;
  }
  pallomir::Tour tour(QString::fromLocal8Bit(arguments[1]), QString::fromLocal8Bit(arguments[2]));
  return tour.Run() ? 0 : 1;
}
