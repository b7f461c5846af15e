#include "gui/forms/range_panel.h"

#include "gui/controls/path_box.h"

namespace pallomir {

namespace {

constexpr const char* kDataDirectory =
    "The folder of the parameter file. All files of the run lie here or one folder up.";
constexpr const char* kLookUpRecord = "Double-click, or press Enter, to look up the time of this record.";
constexpr const char* kSnapTime = "Double-click, or press Enter, to move to the nearest spike inside the range.";

}  // namespace

RangePanel::RangePanel(QWidget* parent) : QWidget(parent) {
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

  cboEpochs = Named(new QComboBox, "cboEpochs", "Epoch", "Choose an epoch to fill in its records and times.");
  SetEpochs({});
  // As wide as the form allows, whatever the epochs' names; the opened list shows them completely.
  cboEpochs->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  cboEpochs->setMinimumContentsLength(12);
  cboEpochs->view()->setMinimumWidth(cboEpochs->fontMetrics().horizontalAdvance('0') * 36);
  cmdDefineEpochs =
      MakeButton("cmdDefineEpochs", "Define Ep&ochs", "Name parts of the recording and find their records.");
  txtStartEvent =
      MakeTextBox("txtStartEvent", "Start record", kLookUpRecord + QString(" \"Start\" stands for record 0."), 8);
  txtStartTime = MakeTextBox("txtStartTime", "Start time in microseconds", kSnapTime, 13);
  txtEndEvent =
      MakeTextBox("txtEndEvent", "End record", kLookUpRecord + QString(" \"End\" stands for the last one."), 8);
  txtEndTime = MakeTextBox("txtEndTime", "End time in microseconds", kSnapTime, 13);
  cmdLoadPoints =
      MakeButton("cmdLoadPoints", "&Load Points", "Load the spikes from the start record to the end record.");
  cmdLoadPoints->setProperty("primary", true);
  ProgressBar1 =
      Named(new QProgressBar, "ProgressBar1", "Loading progress", "How far the loading has come. Esc stops it.");
  ProgressBar1->setRange(0, 32767);
  ProgressBar1->setTextVisible(false);
  auto keepPlace = ProgressBar1->sizePolicy();
  keepPlace.setRetainSizeWhenHidden(true);
  ProgressBar1->setSizePolicy(keepPlace);
  ProgressBar1->hide();

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

void RangePanel::SetEpochs(const QStringList& items) {
  cboEpochs->clear();
  cboEpochs->addItems(items);
  cboEpochs->setPlaceholderText(items.isEmpty() ? "no epochs defined" : "choose an epoch");
  cboEpochs->setCurrentIndex(-1);
}

}  // namespace pallomir
