// The controls of the waveform viewer and their event connections.

#include <QtWidgets>

#include "gui/controls/controls.h"
#include "gui/controls/run_command.h"
#include "gui/controls/titles.h"
#include "gui/controls/toolkit_values.h"
#include "gui/forms/plot_surface.h"
#include "gui/forms/waveforms_form.h"

namespace pallomir {

void Waveforms::LayOut() {
  setObjectName("Waveforms");
  setWindowTitle(TitleWithTetrode("Waveforms", TetrodeOf(session_)));
  surface_ = new PlotSurface(this);
  surface_->setObjectName("waveforms");
  surface_->setMinimumSize(300, 300);
  surface_->setCursor(Qt::CrossCursor);
  cmdBack_ = MakeButton("cmdBack", "◀", "Previous spike of the ticked clusters (left arrow)");
  cmdForward_ = MakeButton("cmdForward", "▶", "Next spike of the ticked clusters (right arrow)");
  cmdBack_->setAccessibleName("Back");
  cmdForward_->setAccessibleName("Forward");
  cmdShowAll_ = MakeButton("cmdShowAll", "Show &All", "Play through the spikes of the ticked clusters from here on");
  cmdStop_ = MakeButton("cmdStop", "S&top", "Stop playing or redrawing (Esc)");
  auto* reset =
      MakeButton("cmdResetToStart", "&Reset To Start", "Return to before the first spike, and clear the drawing");
  auto* zoomOut = MakeButton("cmdZoomOut", "&Zoom Out", "Show the whole drawing. Dragging in it zooms in.");
  auto* clear = MakeButton("cmdClear", "&Clear", "Clear the drawing");
  auto* save = MakeButton("cmdSavePicture", "Save picture", "Save the drawing as a picture (S)");
  auto* leave = MakeButton("cmdExit", "E&xit", "Close this window");
  chkOverlay_ = MakeCheckBox("chkOverlay", "&Overlay", "Superimpose the waveforms");
  chkDigitalCheetah_ = MakeCheckBox("chkDigitalCheetah", "&Digital Cheetah",
                                    "Draw the traces upside down, for recordings with inverted input");
  cboHeight_ =
      Named(new QComboBox, "cboHeight", "Height", "Height of the traces. 1 suits recordings of a few hundred counts.");
  for (const int divisor : {1, 10, 50, 200})
    cboHeight_->addItem(divisor == 1 ? QString("1") : QString("1/%1").arg(divisor), divisor);
  connect(cboHeight_, &QComboBox::currentIndexChanged, this, [this] { DrawAgain(onView_.Picture().Area()); });
  txtTimestamp_ = MakeTextBox("txtTimestamp", "Record", "The record number of the spike shown", 9);
  txtTimestamp_->setReadOnly(true);
  status_ = MakeLabel({});
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
  connect(chkDigitalCheetah_, &QCheckBox::toggled, this, [this] { DrawAgain(onView_.Picture().Area()); });

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
                                  c == 0 ? QString("Show spikes in no cluster") : "Show spikes of " + name.toLower());
    list->addWidget(chkCluster_[c]);
  }
  PaintTicks();
  auto* scroll = new QScrollArea;
  scroll->setWidget(ticks);
  scroll->setWidgetResizable(true);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll->setMinimumWidth(ticks->sizeHint().width() + scroll->verticalScrollBar()->sizeHint().width() + 4);
  return scroll;
}

void Waveforms::PaintTicks() {
  for (int c = 1; c <= kClusters; ++c) {
    QPixmap colour(10, 10);
    colour.fill(ScreenColour(session_.ReferenceColours[c]));
    chkCluster_[c]->setIcon(colour);
  }
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

}  // namespace pallomir
