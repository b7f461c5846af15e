#include "gui/forms/projections.h"

#include <QtWidgets>
#include <chrono>
#include <random>

#include "gui/controls/controls.h"
#include "gui/controls/run_command.h"
#include "gui/controls/save_image.h"
#include "gui/controls/toolkit_values.h"
#include "gui/forms/axis_ruler.h"
#include "gui/forms/boundary_mender.h"
#include "gui/forms/key_cross.h"
#include "gui/forms/status_line.h"
#include "gui/viewers/picture.h"
#include "pallomir/files/error.h"
#include "pallomir/files/number_text.h"
#include "pallomir/projection/counted_part.h"

namespace pallomir {

namespace {

constexpr auto kFrame = std::chrono::milliseconds(30);
/// The longest time without processing events, checked after every kTogether points.
constexpr auto kLongest = std::chrono::milliseconds(40);
constexpr size_t kTogether = 4096;

}  // namespace

Projections::Projections(Workbench& bench)
    : bench_(bench), session_(bench.TheSession()), random_(std::random_device{}()) {
  setObjectName("Projections");
  setWindowTitle("Projections");
  setAttribute(Qt::WA_AlwaysShowToolTips);
  surface_ = new PlotSurface(this);
  surface_->setObjectName("surface");
  surface_->setAccessibleName("Projection of the loaded points");
  surface_->SetNotice("No points are loaded yet",
                      {"1.  Choose a range on the left: records, times, or an epoch.", "2.  Press Load Points.",
                       "3.  Choose a cluster by its number, then click the corners of a polygon here,",
                       "     the last one with the right button."});
  message_ = new StatusLine;
  message_->setObjectName("message");
  pointer_ = new ElidedLine;
  count_ = MakeLabel({});
  count_->setObjectName("count");
  for (QLabel* label : {pointer_, count_}) label->setProperty("quiet", true);
  count_->setMinimumWidth(1);

  auto* status = new QGridLayout;
  status->setContentsMargins(8, 2, 8, 3);
  status->setVerticalSpacing(1);
  status->setHorizontalSpacing(12);
  status->addWidget(message_, 0, 0, 1, 2);
  status->addWidget(pointer_, 1, 0);
  status->addWidget(count_, 1, 1, Qt::AlignRight);
  status->setColumnStretch(0, 1);
  xRuler_ = new AxisRuler(Qt::Horizontal, this);
  yRuler_ = new AxisRuler(Qt::Vertical, this);
  auto* body = new QWidget;
  auto* grid = new QGridLayout(body);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(0);
  grid->addWidget(yRuler_, 0, 0);
  grid->addWidget(surface_, 0, 1);
  grid->addWidget(xRuler_, 1, 1);
  grid->addLayout(status, 2, 0, 1, 2);
  grid->setRowStretch(0, 1);
  setCentralWidget(body);
  setDockOptions(AllowNestedDocks | AllowTabbedDocks);
  body->setFocusProxy(surface_);

  mender_ = new BoundaryMender(bench_, *surface_, this);
  cross_ = new KeyCross(*surface_, this);
  ConnectSurface();
  ConnectMender();
  connect(surface_, &PlotSurface::Left, this, [this] { pointer_->clear(); });
  connect(surface_, &PlotSurface::Resized, this, [this] { resized_.start(); });
  resized_.setSingleShot(true);
  resized_.setInterval(0);
  connect(&resized_, &QTimer::timeout, this, [this] {
    // There are no points during a load: redraw in the new size once it has ended.
    if (!PointsLoaded(session_)) {
      if (bench_.Working()) QTimer::singleShot(kFrame, &resized_, qOverload<>(&QTimer::start));
    } else {
      RunCommand(bench_, [this] { drawn_ ? Redraw() : ShowBlank(); });
    }
  });
  overlapTurn_.setSingleShot(true);
  overlapTurn_.setInterval(0);
  connect(&overlapTurn_, &QTimer::timeout, this, &Projections::ShowOverlap);
  slow_.setInterval(kFrame);
  connect(&slow_, &QTimer::timeout, this, [this] { RunCommand(bench_, [this] { SlowTick(); }); });
  ShowHint();
}

void Projections::Redraw() {
  if (!PointsLoaded(session_)) throw CommandError(ErrorKind::NotReady, "Need to Load Points first");
  StopSlowRedraw();
  const bool open = open_.has_value();
  AbandonIfElsewhere(session_, open_);
  mender_->CancelIfElsewhere();
  const bool givenUp = open && !open_;
  if (!isVisible()) show();
  BeginPicture();
  // Redraws do not pile up under a held key: the running one continues with the new image.
  if (drawing_) {
    startOver_ = true;
    return;
  }
  drawing_ = true;
  const QScopeGuard done = qScopeGuard([this] { drawing_ = startOver_ = false; });
  while (!DrawAllPoints())
    if (!std::exchange(startOver_, false)) return;
  ShowPicture();
  ShowCount();
  ShowHint();
  if (givenUp) Say("The open polygon was abandoned as drawn so far. Undo reverts it.");
  emit Redrawn();
}

bool Projections::DrawAllPoints() {
  const uint64_t generation = generation_;
  // Settings changed meanwhile apply to the next redraw.
  const DrawSettings settings = Settings();
  const size_t batch = options_.Batch;
  // Further clicks refer to the new image, so show it before events are first processed.
  std::chrono::steady_clock::time_point shown;
  auto looked = std::chrono::steady_clock::now();
  size_t nextLook = batch;
  for (size_t begin = 0; begin < session_.Points.Rows();) {
    const size_t end = begin + std::min({kTogether, nextLook - begin, session_.Points.Rows() - begin});
    shown_ += points_.Draw(session_, PairOnView(session_), view_, settings, begin, end, random_);
    begin = end;
    if (begin == session_.Points.Rows()) break;
    // Large discs are slow: process events even within a batch.
    if (begin < nextLook && std::chrono::steady_clock::now() - looked < kLongest) continue;
    if (begin == nextLook) nextLook += batch;
    if (std::chrono::steady_clock::now() - shown > kFrame) {
      ShowPicture();
      shown = std::chrono::steady_clock::now();
    }
    bench_.PumpEvents();
    looked = std::chrono::steady_clock::now();
    // An event may have started a newer image or ended the program.
    if (generation != generation_) return false;
  }
  return true;
}

int Projections::DevicePixel() const {
  return std::max(1, static_cast<int>(std::lround(surface_->devicePixelRatioF())));
}

void Projections::BeginPicture() {
  Supersede();
  pointer_->clear();
  const QSize size = surface_->DeviceSize();
  const double ratio = surface_->devicePixelRatioF();
  view_ = ViewOf(session_, size.width(), size.height());
  ground_ = MakeGround(session_, view_, ratio, {!options_.AxesOff, options_.DrawBoundaries, {}});
  points_ = PointLayer(size, session_.PointSize, DevicePixel(), PointLooks());
  drawn_ = true;
  shown_ = 0;
  ShowRulers();
}

void Projections::ShowRulers() {
  xRuler_->Clear();
  yRuler_->Clear();
  if (!drawn_ || options_.AxesOff || !view_.Drawable()) return;
  const double ratio = surface_->devicePixelRatioF();
  xRuler_->Show(AxisRuler::MarksOf(Qt::Horizontal, view_, ratio),
                FromText(session_.ParameterNames[session_.XParameter]));
  yRuler_->Show(AxisRuler::MarksOf(Qt::Vertical, view_, ratio), FromText(session_.ParameterNames[session_.YParameter]));
}

void Projections::ShowPicture() {
  surface_->SetPicture(points_.Over(ground_, session_), view_);
  ShowPolygon();
  ShowOverlap();
}

const Boundary* Projections::FaultyBoundary() const {
  const int c = session_.CurrentCluster;
  const Cluster& cluster = session_.Clusters[c];
  if (open_ || c == 0 || !drawn_ || !session_.Display[c] || !options_.DrawBoundaries) return nullptr;
  for (int b = 0; b < cluster.BoundaryCount; ++b)
    if (OnView(session_, cluster.Boundaries[b]) && FaultsOf(cluster.Boundaries[b]).Any()) return &cluster.Boundaries[b];
  return nullptr;
}

void Projections::ShowPolygon() {
  const QColor colour = ScreenColour(session_.Colours[session_.CurrentCluster]);
  if (open_)
    surface_->SetPolygons({{BoundaryOf(session_, *open_), colour, ShownPolygon::Looks::Open}});
  else if (auto mended = mender_->Shown(); !mended.empty())
    surface_->SetPolygons(std::move(mended));
  else if (const Boundary* faulty = FaultyBoundary())
    surface_->SetPolygons({{*faulty, colour, ShownPolygon::Looks::Faults}});
  else
    surface_->SetPolygons({});
}

void Projections::ShowCount() {
  const auto loaded = static_cast<int64_t>(session_.Points.Rows());
  count_->setText(
      QString("%1 of %2 points drawn")
          .arg(QString::fromStdString(Grouped(static_cast<int64_t>(shown_))), QString::fromStdString(Grouped(loaded))) +
      (session_.Display[0] ? "" : ", cluster 0 is hidden") + options_.CountNote);
}

void Projections::StartSlowRedraw() {
  if (!PointsLoaded(session_)) throw CommandError(ErrorKind::NotReady, "Need to Load Points first");
  if (!isVisible()) show();
  BeginPicture();
  ShowPicture();
  slowPoint_ = 0;
  slowRest_ = 1;
  slowClock_.start();
  slow_.start();
  ShowHint();
}

void Projections::StopSlowRedraw() {
  if (!slow_.isActive()) return;
  slow_.stop();
  ShowHint();
}

void Projections::SlowTick() {
  if (slowPoint_ >= session_.Points.Rows()) {
    StopSlowRedraw();
    return;
  }
  // At most as many as a redraw does at once; a slow screen falls behind but stays responsive.
  constexpr size_t kMost = 250000;
  const double due = static_cast<double>(slowClock_.restart()) / 1000 * static_cast<double>(options_.Batch) + slowRest_;
  const size_t count = std::min(static_cast<size_t>(std::min(due, 1e15)), kMost);
  slowRest_ = due - std::floor(due);
  shown_ += points_.Draw(session_, PairOnView(session_), view_, Settings(), slowPoint_, slowPoint_ + count, random_);
  slowPoint_ += count;
  if (count == 0) return;
  ShowPicture();
  ShowCount();
}

void Projections::StartOverlap(OverlapPoints points) {
  overlap_ = Overlap{std::move(points)};
  Blink();
}

void Projections::StopOverlap() {
  if (!overlap_) return;
  overlap_.reset();
  surface_->SetBlink({});
  emit OverlapEnded();
}

void Projections::Blink() {
  if (!overlap_) return;
  overlap_->White = !overlap_->White;
  ShowOverlap();
}

void Projections::ShowOverlap() {
  if (!overlap_) return;
  const View scale = surface_->Scale();
  const OverlapPoints& points = overlap_->Points;
  if (!overlap_->Drawn || overlap_->Scale != scale || overlap_->PointSize != session_.PointSize) {
    overlap_->Scale = scale;
    overlap_->PointSize = session_.PointSize;
    overlap_->Next = 0;
    // Discs at every point size.
    overlap_->Drawn.emplace(scale.Width, scale.Height, static_cast<double>(scale.Width) * session_.PointSize / 1000,
                            DevicePixel());
  }
  const std::vector<uint8_t> codes(kTogether, 1);
  const auto begin = std::chrono::steady_clock::now();
  while (overlap_->Next < points.X.size() && std::chrono::steady_clock::now() - begin < kLongest) {
    const size_t next = overlap_->Next, count = std::min(kTogether, points.X.size() - next);
    overlap_->Drawn->Draw(scale, points.X.data() + next, points.Y.data() + next, codes.data(), count);
    overlap_->Next += count;
  }
  if (overlap_->Next < points.X.size()) overlapTurn_.start();
  surface_->SetBlink(PointsAlone(*overlap_->Drawn, overlap_->White ? Qt::white : Qt::black));
}

void Projections::GiveUpPolygon() {
  open_.reset();
  ShowPolygon();
  ShowHint();
}

void Projections::Clear() {
  Supersede();
  StopSlowRedraw();
  drawn_ = false;
  ShowBlank();
  count_->clear();
}

void Projections::ShowBlank() {
  ground_ = MakeImage(surface_->DeviceSize(), QImage::Format_RGB32);
  ground_.setDevicePixelRatio(surface_->devicePixelRatioF());
  ground_.fill(session_.WhiteBackground ? Qt::white : Qt::black);
  surface_->SetBlank(ground_, [this] {
    const QSize size = surface_->DeviceSize();
    return ViewOf(session_, size.width(), size.height());
  });
  ShowPolygon();
  ShowRulers();
}

ProjectionPicture Projections::Picture() {
  if (!PointsLoaded(session_)) throw CommandError(ErrorKind::NotReady, "Need to Load Points first");
  PictureOptions options;
  options.Title = windowTitle();
  options.Plot = surface_->size();
  options.PixelScale = 2 * surface_->devicePixelRatioF();
  options.Ground = {!options_.AxesOff, options_.DrawBoundaries, {}};
  options.Points = PointLooks();
  options.Settings = Settings();
  options.Font = font();
  return {session_, std::move(options), random_};
}

void Projections::Supersede() {
  ++generation_;
  startOver_ = false;
}

void Projections::closeEvent(QCloseEvent* event) {
  // The view is hidden, not destroyed; the next redraw shows it again.
  event->ignore();
  hide();
  emit Hidden();
}

void Projections::changeEvent(QEvent* event) {
  // Moved to a screen with another pixel density.
  if (event->type() == QEvent::ActivationChange && points_.Width() != surface_->DeviceSize().width()) resized_.start();
  // Ctrl may be released in another window.
  if (event->type() == QEvent::ActivationChange && !isActiveWindow()) mender_->Hold(false);
  QWidget::changeEvent(event);
}

}  // namespace pallomir
