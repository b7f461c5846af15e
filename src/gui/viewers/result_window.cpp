#include "gui/viewers/result_window.h"

#include "gui/controls/chosen_path.h"
#include "gui/controls/controls.h"
#include "gui/controls/run_command.h"
#include "gui/controls/save_image.h"
#include "gui/controls/titles.h"
#include "gui/viewers/save_picture.h"
#include "gui/viewers/window_places.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/platform.h"
#include "pallomir/files/save_file.h"

namespace pallomir {

namespace {

constexpr QSize kSize(600, 680);
constexpr char kHint[] = "The wheel zooms, a drag moves, a double click shows everything.";

}  // namespace

ResultWindow::ResultWindow(QWidget* parent, Dialogs& dialogs, const ResultTitle& title, const QString& kind,
                           const std::filesystem::path& resultFile)
    : QWidget(parent, Qt::Window),
      dialogs_(dialogs),
      fileName_(FileNameWithTetrode(title.Tetrode, {title.Title, kind})),
      data_(ReadText(resultFile)) {
  const QString name = QString::fromStdString(NameText(resultFile));
  dataEnding_ = name.section('.', -1);
  setAttribute(Qt::WA_DeleteOnClose);
  setAttribute(Qt::WA_QuitOnClose, false);
  setObjectName("ResultWindow");
  setWindowTitle(TitleWithTetrode(title.Title + " - " + kind, title.Tetrode));

  plot_ = Named(new QCustomPlot, "plot", windowTitle(), {});
  plot_->setFocusPolicy(Qt::StrongFocus);
  plot_->setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
  plot_->setNoAntialiasingOnDrag(false);
  plot_->plotLayout()->clear();
  plot_->plotLayout()->setRowSpacing(2);
  title_ = MakeWords(plot_, windowTitle(), Qt::AlignCenter);
  title_->setMargins({12, 12, 12, 0});
  plot_->plotLayout()->addElement(title_);
  body_ = new QCPLayoutGrid;

  readOut_ = MakeLabel(kHint);
  readOut_->setObjectName("readOut");
  usage_ = MakeLabel({});
  usage_->setObjectName("usage");
  for (QLabel* label : {readOut_, usage_}) {
    label->setProperty("quiet", true);
    label->setTextFormat(Qt::PlainText);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  }
  usage_->setWordWrap(true);
  controls_ = Row({});
  controls_->addStretch();

  auto* below = new QVBoxLayout;
  below->setContentsMargins(12, 6, 12, 10);
  below->setSpacing(6);
  below->addWidget(readOut_);
  below->addWidget(usage_);
  below->addLayout(controls_);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(0, 0, 0, 0);
  all->setSpacing(0);
  auto* menus = new QMenuBar;
  AddWindowMenu(menus, this);
  all->setMenuBar(menus);
  all->addWidget(plot_, 1);
  all->addLayout(below);
  MakeButtons();

  connect(plot_, &QCustomPlot::mouseMove, this, [this](QMouseEvent* event) { ShowReadOut(event->position()); });
  plot_->installEventFilter(this);
  connect(plot_, &QCustomPlot::mouseDoubleClick, this, &ResultWindow::ShowAll);
}

void ResultWindow::MakeButtons() {
  const auto add = [this](const char* name, const char* caption, const char* toolTip, const QKeySequence& keys,
                          auto slot) {
    QPushButton* button = MakeButton(name, caption, toolTip);
    connect(button, &QPushButton::clicked, this, slot);
    if (!keys.isEmpty()) connect(new QShortcut(keys, this), &QShortcut::activated, button, &QPushButton::click);
    controls_->addWidget(button);
  };
  add("cmdShowAll", "Show &all", "Show the whole result again (0, or a double click in the plot)", {},
      &ResultWindow::ShowAll);
  add("cmdCopy", "&Copy", "Copy the picture to the clipboard (Ctrl+C)", QKeySequence::Copy, &ResultWindow::CopyPicture);
  add("cmdSavePicture", "Save &picture", "Save the picture, as it is zoomed, as PNG, SVG or PDF (Ctrl+S)",
      QKeySequence::Save, &ResultWindow::cmdSavePicture_Click);
  add("cmdSaveData", "Save &data", "Save the numbers behind this plot as text", {}, &ResultWindow::cmdSaveData_Click);
}

void ResultWindow::AddControl(QWidget* control) {
  controls_->insertWidget(controls_->count() - 5, control);  // before the stretch and the four buttons
}

void ResultWindow::SetWords(const QStringList& figures, const QString& usage, const QString& explanation) {
  if (explanation.isEmpty())
    for (const QString& line : figures) {
      figures_.push_back(MakeWords(plot_, line, Qt::AlignCenter));
      plot_->plotLayout()->addElement(plot_->plotLayout()->rowCount(), 0, figures_.back());
    }
  plot_->plotLayout()->addElement(plot_->plotLayout()->rowCount(), 0, body_);
  plot_->setAccessibleDescription(explanation.isEmpty() ? figures.join("; ") : explanation);
  usage_->setText(usage);
  usage_->setVisible(!usage.isEmpty());
  if (explanation.isEmpty()) return;
  readOut_->clear();
  explanation_ = new Explanation(plot_, explanation);
  explanation_->setMargins({40, 20, 40, 20});
  body_->addElement(0, 0, explanation_);
}

void ResultWindow::Bound(QCPAxis* axis, QCPRange whole, bool standing) {
  bounds_.push_back({axis, whole, standing});
  const BoundAxis bound = bounds_.back();
  connect(axis, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), this,
          [bound](const QCPRange& range) { KeepWithin(bound, range); });
  axis->setRange(whole);
}

void ResultWindow::KeepWithin(const BoundAxis& bound, const QCPRange& range) {
  const QCPRange whole = bound.Whole;
  if (bound.Standing) {
    bound.Axis->setRange(whole.lower, std::min(range.upper, whole.upper));
    return;
  }
  if (range.lower >= whole.lower && range.upper <= whole.upper) return;
  // Move the range back inside, in the axis's own scale.
  const bool logarithmic = bound.Axis->scaleType() == QCPAxis::stLogarithmic;
  const double by = logarithmic ? range.lower < whole.lower ? whole.lower / range.lower : whole.upper / range.upper
                    : range.lower < whole.lower ? whole.lower - range.lower
                                                : whole.upper - range.upper;
  const auto pushed = [&](double value) {
    return std::clamp(logarithmic ? value * by : value + by, whole.lower, whole.upper);
  };
  bound.Axis->setRange(pushed(range.lower), pushed(range.upper));
}

void ResultWindow::ShowAll() {
  for (const BoundAxis& bound : bounds_) bound.Axis->setRange(bound.Whole);
  plot_->replot();
}

void ResultWindow::Zoom(double factor) {
  for (const BoundAxis& bound : bounds_) bound.Axis->scaleRange(factor);
  plot_->replot();
}

void ResultWindow::Move(Qt::Orientation orientation, int steps) {
  constexpr int pixels = 40;
  for (const BoundAxis& bound : bounds_) {
    if (bound.Standing || bound.Axis->orientation() != orientation) continue;
    const double first = bound.Axis->coordToPixel(bound.Axis->range().lower) + steps * pixels;
    const double last = bound.Axis->coordToPixel(bound.Axis->range().upper) + steps * pixels;
    bound.Axis->setRange(bound.Axis->pixelToCoord(first), bound.Axis->pixelToCoord(last));
  }
  plot_->replot();
}

void ResultWindow::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Escape:
      close();
      return;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      return Zoom(0.8);
    case Qt::Key_Minus:
      return Zoom(1.25);
    case Qt::Key_0:
      return ShowAll();
    case Qt::Key_Left:
      return Move(Qt::Horizontal, -1);
    case Qt::Key_Right:
      return Move(Qt::Horizontal, 1);
    case Qt::Key_Up:
      return Move(Qt::Vertical, -1);
    case Qt::Key_Down:
      return Move(Qt::Vertical, 1);
    default:
      QWidget::keyPressEvent(event);
  }
}

void ResultWindow::ShowReadOut(QPointF at) {
  if (IsEmpty()) return;
  const QString text = ReadOut(at);
  readOut_->setText(text.isEmpty() ? kHint : text);
}

bool ResultWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == plot_ && event->type() == QEvent::Leave && !IsEmpty()) readOut_->setText(kHint);
  return QWidget::eventFilter(watched, event);
}

void ResultWindow::Dress(const PlotStyle& style) {
  plot_->setBackground(QBrush(style.Ground));
  StyleWords(title_, style.Title, style.Ink);
  for (QCPTextElement* line : figures_) StyleWords(line, style.Text, style.Ink);
  if (explanation_)
    StyleWords(explanation_, style.Text, style.Quiet);
  else
    Restyle(style);
  usage_->setFont(style.Small);
  // Wide enough that no line above the plot is cut off.
  int widest = QFontMetrics(style.Title).horizontalAdvance(title_->text());
  for (const QCPTextElement* line : figures_)
    widest = std::max(widest, QFontMetrics(style.Text).horizontalAdvance(line->text()));
  plot_->setMinimumSize(widest + 24, 220);
}

void ResultWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::PaletteChange || !isVisible()) return;
  Dress(ScreenStyle(*this));
  plot_->replot(QCustomPlot::rpQueuedReplot);
}

void ResultWindow::Present() {
  // Draw axes above the data.
  for (QCPAxisRect* rect : plot_->axisRects())
    for (QCPAxis* axis : rect->axes()) axis->setLayer("axes");
  Dress(ScreenStyle(*this));
  PlaceResult(this, kSize);
  show();
  plot_->setFocus();
}

void ResultWindow::CopyPicture() {
  const QScopeGuard screen = qScopeGuard([this] { Dress(ScreenStyle(*this)); });
  Dress(PrintStyle(*this));
  const QImage picture = plot_->toPixmap(plot_->width(), plot_->height(), kPictureScale).toImage();
  if (!picture.isNull()) QApplication::clipboard()->setImage(picture);
  readOut_->setText(picture.isNull() ? "There is not enough memory for the picture."
                                     : "The picture is on the clipboard.");
}

template <class Write>
void ResultWindow::Save(const FileDialogOptions& options, Write write) {
  const QString path = dialogs_.SaveFile(this, options);
  if (path.isEmpty()) return;
  // The user may close the window in the meantime.
  const QPointer<ResultWindow> window(this);
  Dialogs& dialogs = dialogs_;
  try {
    write(PathOf(path));
    if (window) readOut_->setText("Saved " + path);
  } catch (const std::exception& error) {
    dialogs.ShowMessage(window, QString::fromStdString(SentenceOf(error)), {});
  }
}

void ResultWindow::cmdSavePicture_Click() {
  Save({"Save picture", kPictureFilter, fileName_ + ".png", "png"}, [this](const std::filesystem::path& path) {
    QScopeGuard screen([this] { Dress(ScreenStyle(*this)); });
    Dress(PrintStyle(*this));
    SavePicture(*plot_, windowTitle(), path, [&] {
      Dress(ScreenStyle(*this));
      screen.dismiss();
    });
  });
}

void ResultWindow::cmdSaveData_Click() {
  Save({"Save data", "Result (*." + dataEnding_ + ")|*." + dataEnding_ + "|All files (*.*)|*.*",
        fileName_ + "." + dataEnding_, dataEnding_},
       [this](const std::filesystem::path& path) {
         SaveFile file(path);
         file.Write(data_);
         file.Commit();
       });
}

}  // namespace pallomir
