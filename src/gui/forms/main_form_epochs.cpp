// Epochs: defining them, choosing one, loading several at once.

#include <QtWidgets>

#include "gui/controls/controls.h"
#include "gui/controls/toolkit_values.h"
#include "gui/forms/load_multiple_epochs_form.h"
#include "gui/forms/main_form.h"
#include "gui/forms/range_panel.h"
#include "gui/forms/time_epochs_form.h"
#include "pallomir/files/error.h"
#include "pallomir/timesel/epochs.h"
#include "pallomir/timesel/load_points.h"
#include "pallomir/timesel/record_range.h"

namespace pallomir {

namespace {

constexpr size_t kShortestItem = 4;

void Show(QWidget* form) {
  form->show();
  form->raise();
  form->activateWindow();
}

}  // namespace

std::vector<std::string> Main_Form::EpochItems() const {
  std::vector<std::string> items;
  for (int i = 0; i < range_->cboEpochs->count(); ++i) items.push_back(range_->cboEpochs->itemText(i).toStdString());
  return items;
}

void Main_Form::cboEpochs_Click() {
  const int item = range_->cboEpochs->currentIndex();
  const std::string text = range_->cboEpochs->currentText().toStdString();
  if (item < 0 || text.size() < kShortestItem) return;
  if (item >= static_cast<int>(kEpochs)) {
    status_->setText(QString("Epoch %1 has no records: there is room for 30.").arg(item));
    return;
  }
  const Epoch epoch = EpochOfItem(text);
  range_->txtStartTime->setText(QString::fromStdString(epoch.Start));
  range_->txtEndTime->setText(QString::fromStdString(epoch.End));
  range_->txtStartEvent->setText(QString::number(session_.EpochStartRecord[item]));
  range_->txtEndEvent->setText(QString::number(session_.EpochEndRecord[item]));
  status_->setText(AboutRecords(session_.EpochStartRecord[item], session_.EpochEndRecord[item]));
}

QString Main_Form::AboutRecords(int32_t first, int32_t last) const {
  if (first == 0 && last == 0)
    return "The records of this epoch are not known yet: Define Epochs, Get Event IDs finds them.";
  try {
    const auto start = TimeOfRecord(session_, first), end = TimeOfRecord(session_, last);
    if (start < NumberIn(range_->txtStartTime) || end > NumberIn(range_->txtEndTime))
      return "These records are those of an earlier search: Define Epochs, Get Event IDs finds the epoch's own.";
  } catch (const CommandError& error) {
    // Choosing an epoch does not load it yet, so show no message box.
    return FromText(error.what());
  }
  return {};
}

void Main_Form::cmdDefineEpochs_Click() {
  if (!timeEpochs_) {
    timeEpochs_ = new TimeEpochs(session_, dialogs_, EpochItems(), this);
    NameTetrode(timeEpochs_);
    connect(timeEpochs_, &QDialog::finished, this, [this] { timeEpochs_ = nullptr; });
    connect(timeEpochs_, &TimeEpochs::Done, this, [this](const QStringList& items) {
      range_->SetEpochs(items);
      status_->setText("Choose an epoch. Save Defaults keeps the epochs for the next start.");
    });
  }
  Show(timeEpochs_);
}

void Main_Form::mnuLoadMultipleEpochs_Click() {
  if (!multipleEpochs_) {
    multipleEpochs_ = new LoadMultipleEpochsForm(session_, *this, EpochItems(), this);
    NameTetrode(multipleEpochs_);
    multipleEpochs_->installEventFilter(this);
    connect(multipleEpochs_, &LoadMultipleEpochsForm::Load, this, [this] { Run([this] { cmdLoad_Click(); }); });
    connect(multipleEpochs_, &LoadMultipleEpochsForm::SelectionChanged, this, [this] {
      if (session_.MultipleEpochs) status_->setText("The choice of epochs shows at the next redraw.");
    });
    connect(multipleEpochs_, &QDialog::finished, this, &Main_Form::frmLoadMultipleEpochs_Unload);
    connect(new QShortcut(Qt::Key_Escape, multipleEpochs_), &QShortcut::activated, multipleEpochs_, &QWidget::close);
    range_->cmdLoadPoints->setEnabled(false);
  }
  Show(multipleEpochs_);
}

void Main_Form::cmdLoad_Click() {
  advice_ = "Tick the epochs to load. Define Epochs, Get Event IDs finds their records.";
  const EpochRange range = RangeOfSelected(multipleEpochs_->Choices());
  range_->txtStartEvent->setText(QString::number(range.StartRecord));
  range_->txtEndEvent->setText(QString::number(range.EndRecord));
  range_->txtStartTime->setText(QString::fromStdString(range.StartTime));
  range_->txtEndTime->setText(QString::fromStdString(range.EndTime));
  const bool before = std::exchange(session_.MultipleEpochs, true);
  try {
    LoadRange(range.StartRecord, range.EndRecord);
  } catch (...) {
    session_.MultipleEpochs = before;
    throw;
  }
  if (session_.Points.Column(kRecordSlot)[0] != static_cast<float>(session_.LoadStartRecord))
    AppendMessage(
        "This parameter file does not carry the spikes' record numbers: tick \"Display Points in between "
        "epochs\" and redraw to see points.");
}

void Main_Form::frmLoadMultipleEpochs_Unload() {
  for (QLineEdit* box : {range_->txtStartEvent, range_->txtEndEvent, range_->txtStartTime, range_->txtEndTime})
    box->clear();
  GiveUpRange(session_);
  session_.MultipleEpochs = false;
  multipleEpochs_ = nullptr;
  range_->cmdLoadPoints->setEnabled(true);
  projections_->ShowHint();
  status_->setText("Type Start and End into the record boxes, Enter after each: that is the whole recording again.");
}

}  // namespace pallomir
