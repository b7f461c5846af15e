#include "gui/forms/waveforms_form.h"

#include <QtWidgets>

#include "gui/controls/chosen_path.h"
#include "gui/controls/controls.h"
#include "gui/controls/run_command.h"
#include "gui/controls/save_image.h"
#include "gui/controls/titles.h"
#include "gui/controls/toolkit_values.h"
#include "gui/forms/plot_surface.h"
#include "gui/viewers/picture.h"
#include "pallomir/files/error.h"
#include "pallomir/files/number_text.h"
#include "pallomir/projection/draw_points.h"

namespace pallomir {

namespace {

constexpr int kSpikePace = 20;  // milliseconds per spike
constexpr int kTurn = 25;       // milliseconds of drawing between two processings of events
constexpr int kShown = 100;     // milliseconds between two images of a long drawing

/// The palette for the codes of the image.
std::array<uint32_t, 256> Palette(const Session& session) {
  std::array<uint32_t, 256> palette;
  palette.fill(QColor(Qt::white).rgb());
  palette[0] = QColor(Qt::black).rgb();
  for (int c = 0; c < kClusterSlots; ++c) palette[ColourCode(c)] = ScreenColour(session.ReferenceColours[c]).rgb();
  return palette;
}

QString Number(size_t count) {
  return FromText(Grouped(static_cast<int64_t>(count)));
}

}  // namespace

Waveforms::Waveforms(const Session& session, World& world, Dialogs& dialogs, QWidget* parent)
    : QDialog(parent), session_(session), world_(world), dialogs_(dialogs) {
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowFlag(Qt::WindowMinMaxButtonsHint);
  LayOut();
  ConnectKeys();
  cmdZoomOut_Click();
  SetCounter(kBeforeFirstSpike);
  status_->setText(PointsLoaded(session_) ? "The arrow keys step through the spikes of the ticked clusters."
                                          : "Press Load Points in the controls first.");
  const int chosen = session_.CurrentCluster;
  chkCluster_[chosen]->setChecked(true);
  turn_.setSingleShot(true);
  connect(&turn_, &QTimer::timeout, this, [this] {
    RunCommand(world_, [this] {
      QScopeGuard failed([this] { StopDrawing(); });
      WaveformFile file(session_.File.Path);
      DrawOn(file);
      failed.dismiss();
    });
  });
  resized_.setSingleShot(true);
  resized_.setInterval(0);
  connect(surface_, &PlotSurface::Resized, this, [this] { resized_.start(); });
  connect(&resized_, &QTimer::timeout, this, [this] {
    // Keep the same part of the drawing at the new size.
    View view = WholeWaveformView(surface_->DeviceSize().width(), surface_->DeviceSize().height());
    const View& shown = onView_.Picture().Area();
    view.Left = shown.Left, view.Right = shown.Right, view.Top = shown.Top, view.Bottom = shown.Bottom;
    DrawAgain(view);
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
    DrawAgain(ZoomedWaveformView(onView_.Picture().Area(), anchor, at));
  });
}

void Waveforms::RequirePoints() const {
  if (!PointsLoaded(session_)) throw CommandError(ErrorKind::NotReady, "Need to Load Points first");
}

template <class Step>
bool Waveforms::StepWith(Step step) {
  int32_t counter = Counter();
  const auto spike = step(session_, Ticked(), counter);
  SetCounter(counter);
  if (!spike) return false;
  txtTimestamp_->setText(QString::number(spike->Record));
  if (!chkOverlay_->isChecked()) onView_.Clear();
  onView_.Add(*spike);
  return true;
}

template <class Step>
void Waveforms::StepOnce(Step step, const QString& none) {
  RequirePoints();
  // Open the file first: if it is missing, no spike is skipped.
  WaveformFile file(session_.File.Path);
  if (!StepWith(step)) status_->setText(none);
  DrawOn(file);
}

void Waveforms::cmdForward_Click() {
  StepOnce(StepForward, "There are no more spikes of the ticked clusters.");
}

void Waveforms::cmdBack_Click() {
  StepOnce(StepBack, "There are no earlier spikes of the ticked clusters.");
}

void Waveforms::cmdShowAll_Click() {
  if (running_) {
    cmdStop_Click();
    return;
  }
  RequirePoints();
  running_ = inTurns_ = true;
  turn_.start(0);
}

void Waveforms::cmdStop_Click() {
  if (onView_.Waiting() > 0)
    status_->setText(QString("Stopped; %1 of %2 waveforms are drawn.")
                         .arg(Number(onView_.Count() - onView_.Waiting()), Number(onView_.Count())));
  StopDrawing();
  ShowPicture();
}

void Waveforms::StopDrawing() {
  turn_.stop();
  running_ = inTurns_ = false;
}

bool Waveforms::DrawNext(WaveformFile& file) {
  if (onView_.Waiting() == 0 && !(running_ && StepWith(StepForward))) return false;
  if (!onView_.DrawNext(file) && onView_.Waiting() == 0)
    status_->setText(QString("No waveform is stored for spike %1.").arg(txtTimestamp_->text()));
  return true;
}

void Waveforms::DrawOn(WaveformFile& file) {
  QElapsedTimer clock;
  clock.start();
  const bool overlay = chkOverlay_->isChecked();
  bool more = true;
  do {
    more = DrawNext(file);
  } while (more && (overlay || onView_.Waiting() > 0) && clock.elapsed() < kTurn);
  if (onView_.Waiting() > 0) inTurns_ = true;
  const bool goesOn = more && inTurns_;
  const bool inOneGo = overlay || onView_.Waiting() > 0;
  if (!goesOn || !inOneGo || sinceShown_.hasExpired(kShown)) ShowPicture();
  if (onView_.Waiting() > 0)
    status_->setText(QString("Drawing: %1 of %2 waveforms. Stop or Esc ends it.")
                         .arg(Number(onView_.Count() - onView_.Waiting()), Number(onView_.Count())));
  if (goesOn) {
    turn_.start(inOneGo ? 0 : kSpikePace);
    return;
  }
  if (inTurns_) status_->setText(OnView());
  StopDrawing();
}

QString Waveforms::OnView() const {
  const size_t stored = onView_.Stored(), missing = onView_.Count() - stored;
  const QString text = Number(stored) + (stored == 1 ? " spike shown" : " spikes shown");
  return missing == 0 ? text + "." : text + QString("; no waveform is stored for %1 more.").arg(Number(missing));
}

void Waveforms::cmdResetToStart_Click() {
  SetCounter(kBeforeFirstSpike);
  cmdClear_Click();
}

void Waveforms::cmdZoomOut_Click() {
  DrawAgain(WholeWaveformView(surface_->DeviceSize().width(), surface_->DeviceSize().height()));
}

void Waveforms::cmdClear_Click() {
  onView_.Clear();
  if (!running_) StopDrawing();
  ShowPicture();
}

void Waveforms::cmdSavePicture_Click() {
  const QString path =
      dialogs_.SaveFile(this, {"Save Picture", "PNG picture (*.png)|*.png|All files (*.*)|*.*",
                               FileNameWithTetrode(TetrodeOf(session_), {"Waveforms"}) + ".png", "png"});
  if (path.isEmpty()) return;
  const QPointer<Waveforms> window(this);
  SavePictureBytes(PngOf(ImageOf(onView_.Picture().Pixels(), Palette(session_))), PathOf(path));
  if (window) status_->setText("Saved " + QFileInfo(path).fileName() + ".");
}

void Waveforms::DrawAgain(const View& area) {
  const double height = 1.0 / cboHeight_->currentData().toInt();
  try {
    onView_.DrawAgain(area, chkDigitalCheetah_->isChecked() ? -height : height);
    if (onView_.Count() > 0) {
      WaveformFile file(session_.File.Path);
      DrawOn(file);
      return;
    }
  } catch (const std::exception& error) {
    // The user did not ask for the file: resizing a window shows no message box.
    StopDrawing();
    status_->setText(QString::fromStdString(SentenceOf(error)));
  }
  ShowPicture();
}

void Waveforms::ShowColours() {
  PaintTicks();
  if (sinceShown_.isValid()) ShowPicture();
}

void Waveforms::ShowPicture() {
  sinceShown_.start();
  surface_->SetPicture(ImageOf(onView_.Picture().Pixels(), Palette(session_)), onView_.Picture().Area());
}

void Waveforms::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && turn_.isActive())
    cmdStop_Click();
  else
    QDialog::keyPressEvent(event);
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
