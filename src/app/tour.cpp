// Does the program's main job on the real forms, as a user would with the mouse, and takes pictures of them:
//   pallomir-tour DATA_FOLDER PICTURE_FOLDER
// It is made for the sample recording, whose spike file says which cell each spike came from. It leaves every file that
// Pallomir writes; those of the analyses are for one cell. The examples and pictures in the documentation are made from
// them.

#include <map>

#include "app/tour_album.h"
#include "app/tour_hands.h"
#include "gui/controls/dialogs.h"
#include "gui/controls/theme.h"
#include "gui/forms/main_form.h"
#include "gui/live/live_windows.h"
#include "pallomir/analyses/commands.h"
#include "pallomir/clusters/classify.h"
#include "pallomir/files/bytes.h"
#include "pallomir/projection/view.h"
#include "pallomir/recorded/spike_file.h"
#include "pallomir/session/world.h"

namespace pallomir {

namespace {

/// Answers file dialogs with the file name given or the folder's parameter file, and prints the texts of message boxes.
class TourDialogs : public Dialogs {
 public:
  explicit TourDialogs(QString folder) : folder_(std::move(folder)) {}
  void ShowMessage(QWidget*, const QString& text, const QString&) override {
    std::printf("Message: %s\n", qPrintable(text));
  }
  QString OpenFile(QWidget*, const FileDialogOptions& options) override {
    const QString name = options.FileName.isEmpty() ? QString("*.Ntt.parms") : options.FileName;
    const QStringList files = QDir(folder_).entryList({name}, QDir::Files);
    return files.isEmpty() ? QString() : folder_ + "/" + files.first();
  }
  QString SaveFile(QWidget*, const FileDialogOptions& options) override { return folder_ + "/" + options.FileName; }
  int Print(QWidget*, QPrinter&) override { return 0; }
  bool Confirm(QWidget*, const QString&) override { return true; }
  bool StartProgram(const QString&) override { return false; }
  bool ShowDocument(const QString&) override { return false; }

 private:
  QString folder_;
};

class Tour {
 public:
  Tour(const QString& dataFolder, const QString& pictureFolder) : dialogs_(dataFolder), album_(pictureFolder) {}

  bool Run() {
    if (!form_.Form_Load()) return false;
    form_.show();
    // An offscreen display is smaller than a desktop.
    form_.resize(574, 764);
    Projection()->resize(700, 764);
    TakePicture("start", "the controls and the empty projection");
    Press(&form_, "cmdLoadPoints");
    if (!PointsLoaded(session_)) return false;
    TakePicture("loaded", "all points of the recording");
    DefineEpochs();
    LoadSeveralEpochs();
    Cut();
    LookWhileCutting();
    MarkCentre();
    Grade();
    if (!KeepCut()) return false;
    LookAtCells();
    Press(&form_, "cmdExit");
    album_.Close();
    return true;
  }

 private:
  // Cluster numbers for the cells of the sample.
  static constexpr int kInterneuron = 1, kPlaceCell = 2, kGridCell = 3, kHeadDirectionCell = 4;

  /// A cluster's range of peaks on each of the four wires.
  struct Cloud {
    int Cluster;
    std::array<std::pair<float, float>, 4> Peaks;
  };
  static constexpr std::array<Cloud, 3> kClouds = {
      {{kPlaceCell, {{{2300, 4060}, {3430, 5430}, {2550, 4380}, {4270, 6520}}}},
       {kGridCell, {{{2720, 4540}, {2550, 4340}, {5080, 7570}, {4250, 6470}}}},
       {kHeadDirectionCell, {{{5550, 8150}, {3390, 5380}, {7120, 10390}, {3720, 5790}}}}}};

  /// Pairs of events name the epochs of the sample: "Epoch 1 start", "Epoch 1 end".
  void DefineEpochs() {
    Press(&form_, "cmdDefineEpochs");
    QWidget* form = Find(&form_, "TimeEpochs");
    Find<QAbstractButton>(form, "chkFilter")->setChecked(true);
    Press(form, "cmdLoadEventsFile");
    auto* listing = Find<QPlainTextEdit>(form, "txtEventsFile");
    for (int row = 0; row < 3; ++row) {
      Type(form, Numbered("txtEpochLabel", row), QString("run %1").arg(row + 1));
      for (const auto& [event, box] : {std::pair("start", "txtStart"), std::pair("end", "txtEnd")}) {
        const QTextCursor found = listing->document()->find(QString("Epoch %1 %2").arg(row + 1).arg(event));
        DoubleClick(listing->viewport(), listing->cursorRect(found).center());
        Click(Find(form, Numbered(box, row)), {5, 5});
      }
    }
    Press(form, "cmdFindEventNumbers");
    album_.Keep(form->grab(), "epochs", "three epochs, defined from the events file");
    Press(form, "cmdSave");
  }

  void LoadSeveralEpochs() {
    const std::array boxes = {"txtStartEvent", "txtStartTime", "txtEndEvent", "txtEndTime"};
    QStringList whole;
    for (const char* box : boxes) whole << Find<QLineEdit>(&form_, box)->text();
    ChooseEntry(&form_, "mnuLoadMultipleEpochs");
    auto* form = Find<QDialog>(&form_, "frmLoadMultipleEpochs");
    for (const int row : {0, 2}) Press(form, Numbered("chkSelectEpoch", row));
    Press(form, "cmdLoad");
    album_.Keep(form->grab(), "several-epochs", "two of the epochs ticked and loaded");
    form->close();
    for (size_t k = 0; k < boxes.size(); ++k) Type(&form_, boxes[k], whole[static_cast<qsizetype>(k)]);
    Press(&form_, "cmdLoadPoints");
  }

  void Cut() {
    Choose(kInterneuron);
    // Around the interneuron of the sample, by its peaks on the first two wires ...
    const std::vector<Vertex> corners = {{2500, 4100}, {3400, 4000}, {4500, 5300},
                                         {4600, 6900}, {3300, 6900}, {2300, 5300}};
    for (size_t k = 0; k < 4; ++k) Click(Surface(), PlaceOf(corners[k]));
    Mouse(Surface(), QEvent::MouseMove, Qt::NoButton, PlaceOf(corners[4]));
    TakePicture("first-corners", "four corners of an open polygon, and the line to the pointer");
    Click(Surface(), PlaceOf(corners[4]));
    Click(Surface(), PlaceOf(corners[5]), Qt::RightButton);
    TakePicture("first-boundary", "the polygon closed: cluster 1");
    SayPurity();
    // ... and on the other two, where its neighbours on the first are far away.
    ShowParameters(2, 3);
    DrawPolygon({{2800, 7000}, {3800, 7000}, {5300, 9500}, {5300, 10700}, {3900, 10700}, {2700, 8600}});
    TakePicture("second-boundary", "cluster 1 narrowed by a boundary on two other parameters");
    SayPurity();
    for (const int first : {0, 2}) {
      ShowParameters(first, first + 1);
      for (const Cloud& cloud : kClouds) {
        Choose(cloud.Cluster);
        const auto [left, right] = cloud.Peaks[first];
        const auto [low, high] = cloud.Peaks[first + 1];
        DrawPolygon({{left, low}, {right, low}, {right, high}, {left, high}});
      }
    }
    ShowParameters(0, 1);
    TakePicture("cut", "four cells cut");
    Zoom();
  }

  void Zoom() {
    Press(&form_, "optZoom");
    const QPointF corner = PlaceOf({2000, 2300}), opposite = PlaceOf({5000, 7200});
    BeginDrag(Surface(), corner, opposite);
    TakePicture("zoom", "a rectangle being dragged to zoom into it");
    EndDrag(Surface(), opposite);
    TakePicture("zoomed", "what was in the rectangle");
    Press(&form_, "optDrawClustBounds");
    Press(&form_, "cmdScaleDefaults");
  }

  /// The windows that follow the cut, for the place cell.
  void LookWhileCutting() {
    Choose(kPlaceCell);
    auto* live = Projection()->findChild<LiveWindows*>();
    const std::map<QString, QSize> sizes = {{"Pairs", {560, 420}},
                                            {"Cell", {760, 640}},
                                            {"Clusters", {900, 200}},
                                            {"Correlograms", {560, 420}},
                                            {"Overlay", {760, 260}}};
    for (LiveWindow* window : live->Windows()) {
      window->setFloating(true);
      window->resize(sizes.at(window->objectName()));
      window->show();
    }
    live->Finish();
    QApplication::processEvents();
    for (LiveWindow* window : live->Windows()) {
      album_.Keep(window->widget()->grab(), "live-" + window->objectName().toLower(),
                  qPrintable(window->accessibleDescription()));
      window->close();
    }
  }

  void MarkCentre() {
    ShowParameters(kPosX, kPosY);
    Press(&form_, "cmdWriteCenterFile");
    Click(Surface(), PlaceOf({320, 240}));
    ShowParameters(0, 1);
  }

  void Grade() {
    Press(&form_, "cmdClNote");
    QWidget* notes = Find(&form_, "frmClNote");
    const auto grade = [&](int c, const char* option, const QString& remarks) {
      Press(notes, Numbered(option, c));
      Find<QPlainTextEdit>(notes, "txtClRemarks")->setPlainText(remarks);
      Press(notes, "cmdAddRemarks");
    };
    grade(kInterneuron, "optGood", "theta");
    grade(kGridCell, "optFair", "few spikes");
    grade(kHeadDirectionCell, "optPrettyGood", "towards 240 degrees");
    grade(kPlaceCell, "optPrettyGood", "one field, south-west");
    album_.Keep(notes->grab(), "notes", "four clusters graded, one with its remarks");
    Press(notes, "cmdClNoteExit");
  }

  /// Writes the cut and reads it back.
  bool KeepCut() {
    const std::vector<int64_t> before = Sizes();
    auto* tabs = Find<QTabWidget>(&form_, "tabs");
    tabs->setCurrentIndex(1);
    for (const char* button : {"cmdWriteCBFile", "cmdWriteClustFile", "cmdSaveDefaults"}) Press(&form_, button);
    album_.Keep(form_.grab(), "files", "the Files tab, the cut just written");
    Press(&form_, "cmdDeleteAllClusters");
    ChooseEntry(&form_, "mnuReadSelectedClusters");
    QWidget* choice = Find(&form_, "ChooseClusterForm");
    for (const int c : {kPlaceCell, kGridCell}) Press(choice, Numbered("chkCluster", c));
    album_.Keep(choice->grab(), "choose-clusters", "the clusters that are to be read back, ticked");
    Press(choice, "cmdGo");
    Press(&form_, "cmdReadCBFile");
    tabs->setCurrentIndex(2);
    Choose(kPlaceCell);
    album_.Keep(form_.grab(), "analyse", "the Analyse tab");
    if (Sizes() != before) std::printf("The clusters that were read back are not those that were written.\n");
    return Sizes() == before;
  }

  void LookAtCells() {
    Analyse(kGridCell, "cmdRateMap", "grid-rate-map", "where the grid cell fired");
    Analyse(kGridCell, "cmd2DAutoCorr", "grid-autocorrelation", "the grid cell's spatial autocorrelation");
    Analyse(kHeadDirectionCell, "cmdDirection", "head-direction", "the head-direction cell's tuning");
    ShowWaveforms();
    // The others are for the place cell; two more, without a picture, make all result files those of one cell.
    Analyse(kPlaceCell, "cmd2DAutoCorr");
    Analyse(kPlaceCell, "cmdDirection");
    Analyse(kPlaceCell, "cmdRateMap", "rate-map", "where the place cell fired");
    Analyse(kPlaceCell, "cmdOccMap", "occupancy", "where the animal was");
    Analyse(kPlaceCell, "cmdAutoCorr", "train-autocorrelation", "the place cell's spike-train autocorrelation");
    Analyse(kPlaceCell, "cmdLogISI", "log-isi", "its intervals");
    Analyse(kPlaceCell, "cmdReport", "report", "its report");
  }

  /// Runs an analysis and saves a picture of the window it opens, if it has a name.
  void Analyse(int c, const char* button, const QString& name = {}, const char* what = "") {
    Choose(c);
    Press(&form_, button);
    QWidget* window = Window(QString(button) == "cmdReport" ? "frmReport" : "ResultWindow");
    if (!window) qFatal("%s opened no window", button);
    // Larger than on the offscreen display.
    window->resize(window->objectName() == "frmReport" ? QSize(1010, 740) : QSize(600, 680));
    QApplication::processEvents();
    if (!name.isEmpty()) album_.Keep(window->grab(), name, what);
    if (const auto* figures = window->findChild<QLabel*>("lblFigures"))
      std::printf("%s\n", qPrintable(figures->text()));
    delete window;
  }

  void ShowWaveforms() {
    Choose(kHeadDirectionCell);
    Press(&form_, "cmdShowWaveforms");
    auto* waveforms = Find<QDialog>(&form_, "Waveforms");
    Press(waveforms, "chkOverlay");
    Find<QComboBox>(waveforms, "cboHeight")->setCurrentIndex(2);
    for (int i = 0; i < 100; ++i) Press(waveforms, "cmdForward");
    // Drag around the recorded wires.
    QWidget* drawing = Find(waveforms, "waveforms");
    const QPointF opposite(drawing->width() - 2.0, drawing->height() * 0.14);
    BeginDrag(drawing, {1, 1}, opposite);
    EndDrag(drawing, opposite);
    album_.Keep(waveforms->grab(), "waveforms", "a hundred waveforms of the head-direction cell");
    waveforms->close();
  }

  void Choose(int c) {
    const bool shown = Find(&form_, Numbered("lblChooseCluster", c))->isVisible();
    Press(&form_, Numbered(shown ? "lblChooseCluster" : "lblNewCluster", c));
  }

  void ShowParameters(int x, int y) {
    ClickItem(Find<QListWidget>(&form_, "lstX_Axis"), x);
    ClickItem(Find<QListWidget>(&form_, "lstY_Axis"), y);
  }

  void DrawPolygon(std::initializer_list<Vertex> corners) {
    size_t left = corners.size();
    for (const Vertex& corner : corners) Click(Surface(), PlaceOf(corner), --left ? Qt::LeftButton : Qt::RightButton);
  }

  /// The position of two parameter values in the projection.
  QPointF PlaceOf(const Vertex& value) const {
    const View view = ViewOf(session_, Surface()->width(), Surface()->height());
    return {view.PixelX(value.X), view.PixelY(value.Y)};
  }

  static QWidget* Projection() { return Window("Projections"); }
  static QWidget* Surface() { return Find(Projection(), "surface"); }

  void TakePicture(const QString& name, const char* what) {
    QApplication::processEvents();
    album_.Keep(&form_, Projection(), name, what);
  }

  std::vector<int64_t> Sizes() const {
    std::vector<int64_t> sizes;
    for (int c = 1; c <= kClusters; ++c) sizes.push_back(PointsInCluster(session_, c));
    return sizes;
  }

  /// Prints how well cluster 1 matches the cell that most of it came from, according to the spike file.
  void SayPurity() {
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

  /// The cell number of every record of the spike file beside the parameter file.
  std::vector<uint32_t> CellsOfSpikes() const {
    constexpr size_t kCellNumber = 12;  // offset in a record, in bytes
    std::vector<uint32_t> cells;
    SpikeFile(SpikeFilePath(session_.File.Path))
        .ForEachSpike([](double) {},
                      [&](const SpikeRecord& record) {
                        cells.push_back(LoadLittleEndian<uint32_t>(record.Bytes + kCellNumber));
                      });
    return cells;
  }

  Session session_;
  TourDialogs dialogs_;
  Main_Form form_{session_, dialogs_};
  Album album_;
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
