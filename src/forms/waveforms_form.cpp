#include "forms/waveforms_form.h"

#include <QtWidgets>

#include "controls/controls.h"
#include "controls/run_command.h"
#include "controls/save_image.h"
#include "controls/toolkit_values.h"
#include "files/error.h"
#include "forms/picture.h"
#include "forms/plot_surface.h"
#include "projection/draw_points.h"
#include "waveforms/waveform_view.h"

namespace pallomir {

namespace {

constexpr int kSpikePace = 20;    // milliseconds a spike
constexpr int kOverlayTurn = 25;  // milliseconds of drawing between two looks at the user

/// What the codes of the picture are painted with.
std::array<uint32_t, 256> Palette(const Session& session) {
  std::array<uint32_t, 256> palette;
  palette.fill(QColor(Qt::white).rgb());
  palette[0] = QColor(Qt::black).rgb();
  for (int c = 0; c < kClusterSlots; ++c) palette[ColourCode(c)] = ScreenColour(session.ReferenceColours[c]).rgb();
  palette[kNotRecordedCode] = QColor("#3a4150").rgb();
  return palette;
}

}  // namespace

Waveforms::Waveforms(const Session& session, World& world, Dialogs& dialogs, QWidget* parent)
    : QDialog(parent), session_(session), world_(world), dialogs_(dialogs) {
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowFlag(Qt::WindowMinMaxButtonsHint);
  LayOut();
  ConnectKeys();
  picture_.emplace(WholeWaveformView(surface_->DeviceSize().width(), surface_->DeviceSize().height()));
  SetCounter(kBeforeFirstSpike);
  status_->setText(PointsLoaded(session_) ? "The arrow keys step through the spikes of the ticked clusters."
                                          : "Load Points on the controls comes first.");
  const int chosen = session_.CurrentCluster;
  chkCluster_[chosen]->setChecked(true);
  connect(&showAll_, &QTimer::timeout, this, [this] { RunCommand(world_, [this] { ShowSome(); }); });
  resized_.setSingleShot(true);
  resized_.setInterval(0);
  connect(surface_, &PlotSurface::Resized, this, [this] { resized_.start(); });
  connect(&resized_, &QTimer::timeout, this, [this] {
    // The same part of the drawing on the new size.
    View view = WholeWaveformView(surface_->DeviceSize().width(), surface_->DeviceSize().height());
    const View& shown = picture_->Area();
    view.Left = shown.Left, view.Right = shown.Right, view.Top = shown.Top, view.Bottom = shown.Bottom;
    SetArea(view);
  });
  connect(surface_, &PlotSurface::Pressed, this, [this](Qt::MouseButton button, Vertex at) {
    if (button != Qt::LeftButton) return;
    // The surface draws Shape1, the rectangle of the drag.
    zoomAnchor_ = at;
    surface_->SetZoomAnchor(at);
  });
  connect(surface_, &PlotSurface::Released, this, [this](Qt::MouseButton button, Vertex at) {
    if (button != Qt::LeftButton || !zoomAnchor_) return;
    const Vertex anchor = *std::exchange(zoomAnchor_, std::nullopt);
    surface_->SetZoomAnchor({});
    SetArea(ZoomedWaveformView(picture_->Area(), anchor, at));
  });
}

void Waveforms::LayOut() {
  setObjectName("Waveforms");
  setWindowTitle("Waveforms");
  surface_ = new PlotSurface(this);
  surface_->setObjectName("waveforms");
  surface_->setMinimumSize(300, 300);
  surface_->setCursor(Qt::CrossCursor);
  cmdBack_ = MakeButton("cmdBack", "◀", "One spike of the ticked clusters back (left arrow)");
  cmdForward_ = MakeButton("cmdForward", "▶", "One spike of the ticked clusters forward (right arrow)");
  cmdBack_->setAccessibleName("Back");
  cmdForward_->setAccessibleName("Forward");
  cmdShowAll_ = MakeButton("cmdShowAll", "Show &All", "Run through the spikes of the ticked clusters from here on");
  cmdStop_ = MakeButton("cmdStop", "S&top", "End running through");
  auto* reset =
      MakeButton("cmdResetToStart", "&Reset To Start", "Go back before the first spike, and clear the drawing");
  auto* zoomOut = MakeButton("cmdZoomOut", "&Zoom Out", "Show all of the drawing. A drag on it zooms in.");
  auto* clear = MakeButton("cmdClear", "&Clear", "Clear the drawing");
  auto* save = MakeButton("cmdSavePicture", "Save picture", "Save the drawing as a picture (S)");
  auto* leave = MakeButton("cmdExit", "E&xit", "Close this window");
  chkOverlay_ = MakeCheckBox("chkOverlay", "&Overlay", "Draw waveforms over each other");
  chkDigitalCheetah_ = MakeCheckBox("chkDigitalCheetah", "&Digital Cheetah",
                                    "Draw the traces upside down, for recordings with inverted input");
  cboHeight_ = Named(new QComboBox, "cboHeight", "Height",
                     "How high the traces are drawn. 1 is for recordings of a few hundred counts.");
  for (const int divisor : {1, 10, 50, 200})
    cboHeight_->addItem(divisor == 1 ? QString("1") : QString("1/%1").arg(divisor), divisor);
  connect(cboHeight_, &QComboBox::currentIndexChanged, this, &Waveforms::DrawAgain);
  txtTimestamp_ = MakeTextBox("txtTimestamp", "Record", "The record number of the spike on view", 9);
  txtTimestamp_->setReadOnly(true);
  status_ = new QLabel;
  status_->setObjectName("status");
  status_->setProperty("quiet", true);
  OnClick(cmdForward_, &Waveforms::cmdForward_Click);
  OnClick(cmdBack_, &Waveforms::cmdBack_Click);
  OnClick(cmdShowAll_, &Waveforms::cmdShowAll_Click);
  OnClick(cmdStop_, &Waveforms::cmdStop_Click);
  OnClick(reset, &Waveforms::cmdResetToStart_Click);
  OnClick(zoomOut, &Waveforms::cmdZoomOut_Click);
  OnClick(clear, &Waveforms::cmdClear_Click);
  OnClick(save, &Waveforms::cmdSavePicture_Click);
  connect(leave, &QPushButton::clicked, this, &QDialog::reject);
  connect(chkDigitalCheetah_, &QCheckBox::toggled, this, &Waveforms::DrawAgain);

  auto* commands = new QVBoxLayout;
  commands->setSpacing(6);
  commands->addLayout(Row({cmdBack_, cmdForward_}));
  commands->addLayout(Row({MakeLabel("Record", txtTimestamp_), txtTimestamp_}));
  commands->addLayout(Row({cmdShowAll_, cmdStop_}));
  for (QWidget* control :
       {static_cast<QWidget*>(reset), static_cast<QWidget*>(chkOverlay_), static_cast<QWidget*>(chkDigitalCheetah_)})
    commands->addWidget(control);
  commands->addLayout(Row({MakeLabel("&Height", cboHeight_), cboHeight_}));
  commands->addLayout(Row({zoomOut, clear}));
  commands->addWidget(MakeHeading("Clusters"));
  commands->addWidget(MakeTicks(), 1);
  commands->addLayout(Row({save, leave}));
  auto* both = new QHBoxLayout;
  both->setSpacing(10);
  both->addLayout(commands);
  both->addWidget(surface_, 1);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(10, 10, 10, 6);
  column->setSpacing(4);
  column->addLayout(both, 1);
  column->addWidget(status_);
  resize(720, 700);
}

QWidget* Waveforms::MakeTicks() {
  auto* ticks = new QWidget;
  auto* list = new QVBoxLayout(ticks);
  list->setContentsMargins(4, 2, 4, 2);
  list->setSpacing(2);
  for (int c = 0; c < kTicks; ++c) {
    const QString name = QString("Cluster %1").arg(c);
    chkCluster_[c] = MakeCheckBox(Indexed("chkCluster", c), name,
                                  c == 0 ? QString("Show spikes of no cluster") : "Show spikes of " + name.toLower());
    if (c > 0 && c <= kClusters) {
      QPixmap colour(10, 10);
      colour.fill(ScreenColour(session_.ReferenceColours[c]));
      chkCluster_[c]->setIcon(colour);
    }
    list->addWidget(chkCluster_[c]);
  }
  auto* scroll = new QScrollArea;
  scroll->setWidget(ticks);
  scroll->setWidgetResizable(true);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll->setMinimumWidth(ticks->sizeHint().width() + scroll->verticalScrollBar()->sizeHint().width() + 4);
  return scroll;
}

void Waveforms::ConnectKeys() {
  const auto onKey = [this](Qt::Key key, QPushButton* button) {
    connect(new QShortcut(key, this), &QShortcut::activated, button, &QPushButton::click);
  };
  onKey(Qt::Key_Right, cmdForward_);
  onKey(Qt::Key_Left, cmdBack_);
  onKey(Qt::Key_S, findChild<QPushButton*>("cmdSavePicture"));
}

void Waveforms::OnClick(QPushButton* button, void (Waveforms::*handler)()) {
  connect(button, &QPushButton::clicked, this, [this, handler] {
    status_->clear();
    RunCommand(world_, [this, handler] { (this->*handler)(); });
  });
}

template <class Step>
bool Waveforms::StepWith(Step step) {
  int32_t counter = Counter();
  const auto spike = step(session_, Ticked(), counter);
  SetCounter(counter);
  if (spike) Draw(*spike);
  return spike.has_value();
}

void Waveforms::cmdForward_Click() {
  if (!PointsLoaded(session_)) throw CommandError("Need to Load Points first");
  if (!StepWith(StepForward)) status_->setText("There is no further spike of the ticked clusters.");
  ShowPicture();
}

void Waveforms::cmdBack_Click() {
  if (!PointsLoaded(session_)) throw CommandError("Need to Load Points first");
  if (!StepWith(StepBack)) status_->setText("There is no earlier spike of the ticked clusters.");
  ShowPicture();
}

void Waveforms::cmdShowAll_Click() {
  if (showAll_.isActive()) {
    showAll_.stop();
    return;
  }
  if (!PointsLoaded(session_)) throw CommandError("Need to Load Points first");
  showAll_.start(0);
}

void Waveforms::ShowSome() {
  QElapsedTimer clock;
  clock.start();
  const bool overlay = chkOverlay_->isChecked();
  showAll_.setInterval(overlay ? 0 : kSpikePace);
  QScopeGuard failed([this] { showAll_.stop(); });
  bool more = true;
  do {
    more = StepWith(StepForward);
  } while (more && overlay && clock.elapsed() < kOverlayTurn);
  failed.dismiss();
  if (!more) {
    showAll_.stop();
    status_->setText(QString("%1 spikes on view.").arg(onView_.size()));
  }
  ShowPicture();
}

void Waveforms::cmdStop_Click() {
  showAll_.stop();
}

void Waveforms::cmdResetToStart_Click() {
  SetCounter(kBeforeFirstSpike);
  cmdClear_Click();
}

void Waveforms::cmdZoomOut_Click() {
  SetArea(WholeWaveformView(surface_->DeviceSize().width(), surface_->DeviceSize().height()));
}

void Waveforms::cmdClear_Click() {
  onView_.clear();
  DrawAgain();
}

void Waveforms::cmdSavePicture_Click() {
  const QString path = dialogs_.SaveFile(
      this, {"Save Picture", "PNG picture (*.png)|*.png|All files (*.*)|*.*", "waveforms.png", "png"});
  if (path.isEmpty()) return;
  SavePictureBytes(PngOf(ImageOf(picture_->Pixels(), Palette(session_))), QDir::toNativeSeparators(path).toStdString());
  status_->setText("Saved " + QFileInfo(path).fileName() + ".");
}

void Waveforms::Draw(const ShownSpike& spike) {
  if (!file_) file_.emplace(session_.File.Path);
  txtTimestamp_->setText(QString::number(spike.Record));
  WaveformRecord record;
  if (!file_->Read(spike.Record, record)) {
    status_->setText(QString("No waveform is stored for spike %1.").arg(spike.Record));
    return;
  }
  if (!chkOverlay_->isChecked()) {
    picture_->Clear();
    onView_.clear();
  }
  DrawRecord(record, spike.Cluster);
  onView_.push_back(spike);
}

void Waveforms::DrawRecord(WaveformRecord& record, int cluster) {
  const int divisor = cboHeight_->currentData().toInt();
  if (divisor > 1)
    for (int16_t& value : record) value = static_cast<int16_t>(value / divisor);
  picture_->Draw(record, cluster, chkDigitalCheetah_->isChecked());
}

void Waveforms::SetArea(const View& view) {
  RunCommand(world_, [&] { picture_ = WaveformPicture(view); });
  DrawAgain();
}

void Waveforms::DrawAgain() {
  RunCommand(world_, [this] {
    picture_->Clear();
    WaveformRecord record;
    for (const ShownSpike& spike : onView_)
      if (file_->Read(spike.Record, record)) DrawRecord(record, spike.Cluster);
    ShowPicture();
  });
}

void Waveforms::ShowPicture() {
  surface_->SetPicture(ImageOf(picture_->Pixels(), Palette(session_)), picture_->Area());
}

ClusterTicks Waveforms::Ticked() const {
  ClusterTicks ticks;
  for (int c = 0; c < kTicks; ++c) ticks[c] = chkCluster_[c]->isChecked();
  return ticks;
}

int32_t Waveforms::Counter() const {
  return cmdForward_->property("Tag").toString().toInt();
}

void Waveforms::SetCounter(int32_t counter) {
  cmdForward_->setProperty("Tag", QString::number(counter));
}

}  // namespace pallomir
