#include "gui/forms/range_panel.h"

#include "gui/controls/event_hook.h"
#include "gui/controls/path_box.h"
#include "gui/controls/toolkit_values.h"
#include "pallomir/files/number_text.h"
#include "pallomir/timesel/load_points.h"
#include "pallomir/timesel/record_range.h"

namespace pallomir {

namespace {

constexpr const char* kDataDirectory =
    "The folder of the parameter file. All files of the session are here or one folder up.";
constexpr const char* kLookUpRecord = "Double-click, or press Enter, to look up the time of this record.";
constexpr const char* kSnapTime = "Double-click, or press Enter, to move to the nearest spike inside the range.";

void SetNumber(QLineEdit* box, double value) {
  box->setText(QString::fromStdString(PlainDecimal(value)));
}

/// The number in a record box, or `otherwise`, the record loaded before, if it has none.
int32_t RecordIn(const QLineEdit* box, int32_t otherwise) {
  const auto number = NumberIn(box);
  return number ? WholeNumber(*number, box->accessibleName().toStdString()) : otherwise;
}

}  // namespace

RangePanel::RangePanel(Workbench& bench, Projections& projections, QWidget* parent)
    : QWidget(parent), bench_(bench), session_(bench.TheSession()), projections_(projections) {
  MakeEpochs();
  MakeBoxes();
  MakeLoading();
  LayOut();
  Connect();
}

void RangePanel::MakeBoxes() {
  txtCurDir = Named(new PathBox, "txtCurDir", "Data directory", kDataDirectory);
  connect(txtCurDir, &QLineEdit::textChanged, this, [this](const QString& path) {
    txtCurDir->setToolTip("<qt>" + path.toHtmlEscaped() + "<br>" + kDataDirectory + "</qt>");
  });
  txtParamFile = MakeTextBox("txtParamFile", "Parameter file",
                             "This is a relic fromk when the program allowed .oparms files to be created.  It is still "
                             "here so tat Defautls files can still be read, but it is made invisible",
                             4);
  txtParamFile->setParent(this);
  txtParamFile->hide();

  txtStartEvent =
      MakeTextBox("txtStartEvent", "Start record", kLookUpRecord + QString(" \"Start\" stands for record 0."), 8);
  txtStartTime = MakeTextBox("txtStartTime", "Start time in microseconds", kSnapTime, 13);
  txtEndEvent =
      MakeTextBox("txtEndEvent", "End record", kLookUpRecord + QString(" \"End\" stands for the last one."), 8);
  txtEndTime = MakeTextBox("txtEndTime", "End time in microseconds", kSnapTime, 13);
}

void RangePanel::MakeEpochs() {
  cboEpochs = Named(new QComboBox, "cboEpochs", "Epoch", "Choose an epoch to fill in its records and times.");
  SetEpochs({});
  // As wide as the form allows, whatever the epochs' names; the opened list shows them completely.
  cboEpochs->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  cboEpochs->setMinimumContentsLength(12);
  cboEpochs->view()->setMinimumWidth(cboEpochs->fontMetrics().horizontalAdvance('0') * 36);
  cmdDefineEpochs =
      MakeButton("cmdDefineEpochs", "Define Ep&ochs", "Name parts of the recording and find their records.");
}

void RangePanel::MakeLoading() {
  cmdLoadPoints =
      MakeButton("cmdLoadPoints", "&Load Points", "Load the spikes from the start record to the end record.");
  cmdLoadPoints->setProperty("primary", true);
  ProgressBar1 = Named(new QProgressBar, "ProgressBar1", "Loading progress", "Progress of loading. Esc stops it.");
  ProgressBar1->setRange(0, 32767);
  ProgressBar1->setTextVisible(false);
  auto keepPlace = ProgressBar1->sizePolicy();
  keepPlace.setRetainSizeWhenHidden(true);
  ProgressBar1->setSizePolicy(keepPlace);
  ProgressBar1->hide();
}

void RangePanel::LayOut() {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(6);
  grid->setVerticalSpacing(4);
  grid->addWidget(MakeLabel("Recording", txtCurDir), 0, 0);
  grid->addWidget(txtCurDir, 0, 1, 1, 3);
  grid->addWidget(MakeLabel("&Epoch", cboEpochs), 0, 4);
  grid->addWidget(cboEpochs, 0, 5);
  grid->addWidget(cmdDefineEpochs, 0, 6);
  grid->addWidget(MakeLabel("&Start record", txtStartEvent), 1, 0);
  grid->addWidget(txtStartEvent, 1, 1);
  grid->addWidget(MakeLabel("time, µs", txtStartTime), 1, 2);
  grid->addWidget(txtStartTime, 1, 3, 1, 3);
  grid->addWidget(cmdLoadPoints, 1, 6, 2, 1);
  grid->addWidget(MakeLabel("E&nd record", txtEndEvent), 2, 0);
  grid->addWidget(txtEndEvent, 2, 1);
  grid->addWidget(MakeLabel("time, µs", txtEndTime), 2, 2);
  grid->addWidget(txtEndTime, 2, 3, 1, 3);
  grid->addWidget(ProgressBar1, 3, 0, 1, 7);
  grid->setColumnStretch(1, 2);
  grid->setColumnStretch(3, 1);
  grid->setColumnStretch(5, 3);
  setTabOrder(txtStartTime, txtEndEvent);
  setTabOrder(txtEndTime, cmdLoadPoints);
  cmdLoadPoints->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Expanding);
}

void RangePanel::Connect() {
  bench_.OnClick(cmdLoadPoints, this, &RangePanel::cmdLoadPoints_Click);
  bench_.OnClick(cmdDefineEpochs, this, &RangePanel::cmdDefineEpochs_Click);
  bench_.On(cboEpochs, &QComboBox::activated, [this] { cboEpochs_Click(); });
  const auto onDoubleClick = [this](QLineEdit* box, void (RangePanel::*handler)()) {
    OnDoubleClick(box, [this, handler] { bench_.Run([=, this] { (this->*handler)(); }); });
  };
  onDoubleClick(txtStartTime, &RangePanel::txtStartTime_DblClick);
  onDoubleClick(txtEndTime, &RangePanel::txtEndTime_DblClick);
  onDoubleClick(txtStartEvent, &RangePanel::txtStartEvent_DblClick);
  onDoubleClick(txtEndEvent, &RangePanel::txtEndEvent_DblClick);
  mnuLoadPoints = MakeMenu(this, "mnuLoadPoints", "LoadPoints");
  bench_.On(MakeEntry(mnuLoadPoints, "mnuLoadMultipleEpochs", "Load Multiple Epochs"), &QAction::triggered,
            [this] { mnuLoadMultipleEpochs_Click(); });
  OpenByRightClick(cmdLoadPoints, mnuLoadPoints);

  bench_.KeepText(txtStartTime, bench_.StartTime);
  bench_.KeepText(txtEndTime, bench_.EndTime);
  bench_.KeepText(txtParamFile, bench_.Names.ParamFile);
  connect(cboEpochs->model(), &QAbstractItemModel::rowsInserted, this, &RangePanel::KeepEpochs);
  connect(cboEpochs->model(), &QAbstractItemModel::rowsRemoved, this, &RangePanel::KeepEpochs);
  connect(&bench_, &Workbench::NamesRead, this, [this] {
    QStringList epochs;
    for (const std::string& epoch : bench_.Names.Epochs) epochs << QString::fromStdString(epoch);
    SetEpochs(epochs);
  });
  connect(&bench_, &Workbench::ProgressShown, this, [this](double share) {
    ProgressBar1->setValue(BarValue(share));
    ProgressBar1->show();
  });
  connect(&bench_, &Workbench::ProgressHidden, ProgressBar1, &QWidget::hide);
}

void RangePanel::AddTo(QMenu* menu) {
  for (QPushButton* button : {cmdLoadPoints, cmdDefineEpochs})
    connect(menu->addAction(button->text().remove('&')), &QAction::triggered, button, &QPushButton::click);
  menu->addActions(mnuLoadPoints->actions());
}

void RangePanel::ShowFolder() {
  txtCurDir->setText(FromText(PathText(session_.DataDirectory)));
  txtCurDir->setCursorPosition(0);
}

void RangePanel::ShowWholeRecording() {
  txtStartEvent->setText("0");
  txtEndEvent->setText(QString::number(session_.File.RecordCount - 1));
  if (session_.File.RecordCount > 0) {
    bench_.Run([this] { txtStartEvent_DblClick(); });
    bench_.Run([this] { txtEndEvent_DblClick(); });
  } else {
    bench_.AppendMessage("This recording holds no spikes.");
  }
}

void RangePanel::cmdLoadPoints_Click() {
  if (txtStartEvent->text().isEmpty() && txtEndEvent->text().isEmpty())
    bench_.AdviseOnFailure(
        "For the whole recording, type Start and End into the record boxes, pressing Enter after each.");
  const int32_t start = RecordIn(txtStartEvent, session_.LoadStartRecord);
  const int32_t end = RecordIn(txtEndEvent, session_.LoadEndRecord);
  session_.MultipleEpochs = false;
  LoadRange(start, end);
  // A box without a number shows the record loaded instead.
  if (!NumberIn(txtStartEvent)) txtStartEvent->setText(QString::number(start));
  if (!NumberIn(txtEndEvent)) txtEndEvent->setText(QString::number(end));
}

void RangePanel::LoadRange(int32_t start, int32_t end) {
  QElapsedTimer clock;
  clock.start();
  const bool loaded = PointsLoaded(session_);
  try {
    bench_.Work([&] { LoadPoints(session_, bench_, start, end); });
  } catch (...) {
    if (loaded && !PointsLoaded(session_)) ShowNoPoints();
    throw;
  }
  projections_.Redraw();
  emit bench_.CutChanged();
  const QString told = QString("%1 points loaded in %2 s.")
                           .arg(FromText(Grouped(static_cast<int64_t>(session_.Points.Rows()))))
                           .arg(static_cast<double>(clock.elapsed()) / 1000, 0, 'f', 2);
  bench_.Say(bench_.TimesSpanLoaded() ? told
                                      : told + " The times do not cover them: press Enter in both record boxes.");
}

void RangePanel::ShowNoPoints() {
  projections_.Clear();
  projections_.ShowHint();
  emit bench_.CutChanged();
  bench_.SayIfStopped("Stopped; no points are loaded now. The boundaries are unchanged.");
}

void RangePanel::txtStartTime_DblClick() {
  const auto start = NumberIn(txtStartTime);
  if (!start) return;
  std::optional<RecordTime> found;
  bench_.Work([&] { found = RecordAtStart(session_, bench_, *start); });
  if (!found) return;
  SetNumber(txtStartTime, found->Time);
  SetNumber(txtStartEvent, static_cast<double>(found->Record));
}

void RangePanel::txtEndTime_DblClick() {
  const auto end = NumberIn(txtEndTime);
  if (!end) return;
  std::optional<RecordTime> found;
  bench_.Work([&] { found = RecordAtEnd(session_, bench_, *end); });
  if (!found) return;
  SetNumber(txtEndTime, found->Time);
  SetNumber(txtEndEvent, static_cast<double>(found->Record));
}

void RangePanel::txtStartEvent_DblClick() {
  const QString text = txtStartEvent->text();
  if (text == "Start" || text == "start") txtStartEvent->setText("0");
  LookUpTime(txtStartEvent, txtStartTime);
}

void RangePanel::txtEndEvent_DblClick() {
  const QString text = txtEndEvent->text();
  if (text == "End" || text == "end") SetNumber(txtEndEvent, static_cast<double>(session_.File.RecordCount - 1));
  LookUpTime(txtEndEvent, txtEndTime);
}

void RangePanel::LookUpTime(QLineEdit* record, QLineEdit* time) {
  const auto number = NumberIn(record);
  if (!number) return;
  if (const auto stamp = TimeOfRecord(session_, *number)) SetNumber(time, *stamp);
}

}  // namespace pallomir
