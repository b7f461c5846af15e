#include "gui/live/cell_window.h"

#include <qcustomplot.h>

#include <QtWidgets>
#include <algorithm>

#include "gui/controls/chosen_path.h"
#include "gui/controls/controls.h"
#include "gui/controls/run_command.h"
#include "gui/controls/titles.h"
#include "gui/live/shown_measures.h"
#include "gui/viewers/figures.h"
#include "gui/viewers/save_picture.h"

namespace pallomir {

namespace {

constexpr char kSpatialLags[] = "cell.spatialAutocorrelation";
constexpr int kNarrowest = 160, kLowest = 120;  // of a picture, in pixels

QLabel* MakeCaption(const QString& text) {
  QLabel* caption = MakeLabel(text);
  caption->setProperty("quiet", true);
  caption->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  return caption;
}

}  // namespace

CellWindow::CellWindow(Dialogs& dialogs)
    : LiveWindow("Cell", "Cell", "All about the chosen cluster, while it is cut: N goes to the next one", dialogs),
      heading_(MakeHeading({})),
      chkSpatialLags_(MakeCheckBox("chkSpatialLags", "Spatial &autocorrelation",
                                   "Also correlate the rate map with itself at every shift")),
      figures_(Named(new QTreeWidget, "figures", "Measures of the cluster", {})),
      sheet_(new QWidget),
      grid_(new QGridLayout(sheet_)) {
  MakeFigures();
  MakePictures();
  auto* scroll = new QScrollArea;
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setWidget(sheet_);
  auto* parts = new QSplitter(Qt::Vertical);
  parts->setObjectName("parts");
  parts->addWidget(scroll);
  parts->addWidget(figures_);
  parts->setSizes({700, 300});
  QVBoxLayout* column = MakeContent();
  AddText(column, heading_);
  column->addWidget(parts, 1);
  column->addWidget(chkSpatialLags_);
  connect(chkSpatialLags_, &QCheckBox::toggled, this, [this](bool shown) {
    pictures_[kSpatialLagsPlot].Whole->setVisible(shown);
    columns_ = 0;
    Arrange();
    emit Changed();
  });
  pictures_[kSpatialLagsPlot].Whole->hide();
  Arrange();
}

void CellWindow::MakeFigures() {
  figures_->setColumnCount(2);
  figures_->setHeaderLabels({"Measure", "Value"});
  figures_->setRootIsDecorated(false);
  figures_->setUniformRowHeights(true);
  figures_->setAlternatingRowColors(true);
  figures_->setAllColumnsShowFocus(true);
  figures_->setMinimumHeight(60);
  for (const ShownMeasure& measure : ShownMeasures())
    figures_->addTopLevelItem(new QTreeWidgetItem({measure.Caption(), {}}));
  figures_->resizeColumnToContents(0);
}

void CellWindow::MakePictures() {
  grid_->setContentsMargins(0, 0, 0, 0);
  grid_->setSpacing(6);
  for (size_t i = 0; i < pictures_.size(); ++i) {
    const CellPlot& kind = kPlotsOfCell[i];
    Picture& picture = pictures_[i];
    picture.Whole = new QWidget(sheet_);
    picture.Caption = MakeCaption(kind.Caption);
    picture.Plot = Named(new QCustomPlot, kind.Name, kind.Caption,
                         QString(kind.Meaning) + ". A right click copies or saves the picture.");
    picture.Plot->setMinimumSize(kNarrowest - 20, kLowest);
    // Plots do not pass mouse events on to their parents.
    picture.Plot->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(picture.Plot, &QWidget::customContextMenuRequested, this,
            [this, plot = picture.Plot](QPoint at) { OpenMenu(plot->mapToGlobal(at)); });
    auto* column = new QVBoxLayout(picture.Whole);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(picture.Caption);
    column->addWidget(picture.Plot, 1);
  }
}

void CellWindow::Arrange() {
  const int columns = std::clamp(width() / kNarrowest, 1, 4);
  if (columns == columns_) return;
  columns_ = columns;
  for (Picture& picture : pictures_) grid_->removeWidget(picture.Whole);
  int place = 0;
  for (Picture& picture : pictures_) {
    if (picture.Whole->isHidden() && &picture == &pictures_[kSpatialLagsPlot]) continue;
    grid_->addWidget(picture.Whole, place / columns, place % columns);
    ++place;
  }
}

void CellWindow::Remember(Preferences& preferences) const {
  preferences.Set(kSpatialLags, chkSpatialLags_->isChecked());
}

void CellWindow::Recall(const Preferences& preferences) {
  chkSpatialLags_->setChecked(preferences.Get(kSpatialLags, false));
}

void CellWindow::AddWants(const Session& session, LiveWants& wants) const {
  wants.Cell = session.CurrentCluster;
  wants.CellParts.set();
  wants.SpatialLags = chkSpatialLags_->isChecked();
}

void CellWindow::ShowState(const LiveState& state) {
  state_.emplace(state);
  const int c = state.Program.CurrentCluster;
  const LiveCluster& cluster = state.Cut.Clusters[c];
  const QString spikes = Whole(static_cast<double>(cluster.Spikes)) + (cluster.Spikes == 1 ? " spike" : " spikes");
  heading_->setText(c == 0             ? QString("Choose a cluster")
                    : !cluster.Defined ? QString("Cluster %1 has no boundary").arg(c)
                                       : QString("Cluster %1, %2").arg(c).arg(spikes));
  ShowFigures(cluster, state.Cut);
  ShowPictures(cluster, state.Cut);
}

void CellWindow::ShowFigures(const LiveCluster& cluster, const LiveCut& cut) {
  const QBrush quiet = palette().brush(QPalette::PlaceholderText), usual = palette().brush(QPalette::Text);
  for (int i = 0; i < figures_->topLevelItemCount(); ++i) {
    const ShownMeasure& measure = ShownMeasures()[static_cast<size_t>(i)];
    QTreeWidgetItem* item = figures_->topLevelItem(i);
    item->setText(1, cluster.Defined ? measure.Text(cluster) : QString());
    item->setForeground(1, measure.IsFresh(cluster) ? usual : quiet);
    const QString remark = cluster.Defined ? measure.Remark(cluster, cut) : QString();
    const QString tip = PlainToolTip(measure.Meaning(cut.InMicrovolts) + (remark.isEmpty() ? "" : "\n" + remark));
    item->setToolTip(0, tip);
    item->setToolTip(1, tip);
  }
}

void CellWindow::ShowPictures(const LiveCluster& cluster, const LiveCut& cut) {
  for (size_t i = 0; i < pictures_.size(); ++i) {
    const CellPlot& kind = kPlotsOfCell[i];
    Picture& picture = pictures_[i];
    const bool fresh = cluster.Fresh[IndexOf(kind.Part)];
    picture.Caption->setText(QString(kind.Caption) + (cluster.Defined && !fresh ? " …" : ""));
    const CellPlot::Source source = kind.SourceOf(cluster, cut);
    if (picture.Drawn == source) continue;
    picture.Drawn = source;
    kind.Draw(*picture.Plot, cluster, cut, ScreenStyle(*this));
    picture.Plot->replot(QCustomPlot::rpQueuedReplot);
  }
}

std::optional<size_t> CellWindow::PictureAt(QPoint at) const {
  for (size_t i = 0; i < pictures_.size(); ++i) {
    const QCustomPlot* plot = pictures_[i].Plot;
    if (plot->visibleRegion().contains(plot->mapFromGlobal(at))) return i;
  }
  return {};
}

void CellWindow::AddEntries(QMenu& menu, QPoint at) {
  const auto index = PictureAt(at);
  if (!index || !state_) return;
  const QString what = QString(kPlotsOfCell[*index].Caption).toLower();
  menu.addAction("Copy the " + what, this, [this, index] { CopyPicture(*index); });
  menu.addAction("Save the " + what + "...", this, [this, index] { SavePictureOf(*index); });
}

void CellWindow::CopyPicture(size_t index) {
  QCustomPlot& plot = *pictures_[index].Plot;
  QApplication::clipboard()->setImage(plot.toPixmap(plot.width(), plot.height(), kPictureScale).toImage());
}

void CellWindow::SavePictureOf(size_t index) {
  const int c = state_->Program.CurrentCluster;
  const CellPlot& kind = kPlotsOfCell[index];
  const QString name = FileNameWithTetrode(TetrodeOf(state_->Program), {QString("cluster %1").arg(c), kind.Caption});
  // On white paper, on a plot of its own.
  QCustomPlot plot;
  plot.setFont(font());
  plot.resize(pictures_[index].Plot->size());
  kind.Draw(plot, state_->Cut.Clusters[c], state_->Cut, PrintStyle(*this));
  SaveAs(PictureOf(plot, name), name);
}

void CellWindow::resizeEvent(QResizeEvent* event) {
  LiveWindow::resizeEvent(event);
  Arrange();
}

void CellWindow::changeEvent(QEvent* event) {
  LiveWindow::changeEvent(event);
  if (event->type() != QEvent::PaletteChange) return;
  for (Picture& picture : pictures_) picture.Drawn.reset();
  emit Changed();
}

}  // namespace pallomir
