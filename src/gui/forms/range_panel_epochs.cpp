// Epochs: defining them, choosing one, loading several at once.

#include <QtWidgets>

#include "gui/controls/event_hook.h"
#include "gui/controls/toolkit_values.h"
#include "gui/forms/range_panel.h"
#include "pallomir/files/error.h"
#include "pallomir/timesel/epochs.h"
#include "pallomir/timesel/load_points.h"
#include "pallomir/timesel/record_range.h"

namespace pallomir {

namespace {

constexpr size_t kShortestItem = 4;

}  // namespace

void RangePanel::SetEpochs(const QStringList& items) {
  cboEpochs->clear();
  cboEpochs->addItems(items);
  cboEpochs->setPlaceholderText(items.isEmpty() ? "no epochs defined" : "choose an epoch");
  cboEpochs->setCurrentIndex(-1);
}

void RangePanel::KeepEpochs() {
  bench_.Names.Epochs.clear();
  for (int i = 0; i < cboEpochs->count(); ++i) bench_.Names.Epochs.push_back(cboEpochs->itemText(i).toStdString());
}

void RangePanel::cboEpochs_Click() {
  const int item = cboEpochs->currentIndex();
  const std::string text = cboEpochs->currentText().toStdString();
  if (item < 0 || text.size() < kShortestItem) return;
  if (item >= static_cast<int>(kEpochs)) {
    bench_.Say(QString("Epoch %1 has no records: there is only room for 30.").arg(item));
    return;
  }
  const Epoch epoch = EpochOfItem(text);
  txtStartTime->setText(QString::fromStdString(epoch.Start));
  txtEndTime->setText(QString::fromStdString(epoch.End));
  txtStartEvent->setText(QString::number(session_.EpochStartRecord[item]));
  txtEndEvent->setText(QString::number(session_.EpochEndRecord[item]));
  bench_.Say(AboutRecords(session_.EpochStartRecord[item], session_.EpochEndRecord[item]));
}

QString RangePanel::AboutRecords(int32_t first, int32_t last) const {
  if (first == 0 && last == 0)
    return "The records of this epoch are not known yet: use Define Epochs, Get Event IDs to find them.";
  try {
    const auto start = TimeOfRecord(session_, first), end = TimeOfRecord(session_, last);
    if (start < NumberIn(txtStartTime) || end > NumberIn(txtEndTime))
      return "These records are from an earlier search: use Define Epochs, Get Event IDs to find this epoch's own.";
  } catch (const CommandError& error) {
    // Choosing an epoch does not load it yet, so show no message box.
    return FromText(error.what());
  }
  return {};
}

void RangePanel::cmdDefineEpochs_Click() {
  if (!timeEpochs_) {
    timeEpochs_ = new TimeEpochs(session_, bench_.TheDialogs(), bench_.Names.Epochs, window());
    bench_.NameTetrode(timeEpochs_);
    connect(timeEpochs_, &QDialog::finished, this, [this] { timeEpochs_ = nullptr; });
    connect(timeEpochs_, &TimeEpochs::Done, this, [this](const QStringList& items) {
      SetEpochs(items);
      bench_.Say("Choose an epoch. Save Defaults keeps the epochs for the next start.");
    });
  }
  ShowOnTop(timeEpochs_);
}

void RangePanel::mnuLoadMultipleEpochs_Click() {
  if (!multipleEpochs_) {
    multipleEpochs_ = new LoadMultipleEpochsForm(session_, bench_, bench_.Names.Epochs, window());
    bench_.NameTetrode(multipleEpochs_);
    HookEvents(multipleEpochs_, [this](QEvent* event) {
      if (event->type() != QEvent::Close || !bench_.Working()) return false;
      bench_.Stop();
      event->ignore();
      return true;
    });
    bench_.On(multipleEpochs_.data(), &LoadMultipleEpochsForm::Load, [this] { cmdLoad_Click(); });
    connect(multipleEpochs_, &LoadMultipleEpochsForm::SelectionChanged, this, [this] {
      SetRecordRanges();
      if (session_.MultipleEpochs) bench_.Say("The choice of epochs takes effect at the next redraw.");
    });
    connect(multipleEpochs_, &QDialog::finished, this, &RangePanel::frmLoadMultipleEpochs_Unload);
    connect(new QShortcut(Qt::Key_Escape, multipleEpochs_), &QShortcut::activated, multipleEpochs_, &QWidget::close);
    cmdLoadPoints->setEnabled(false);
  }
  ShowOnTop(multipleEpochs_);
}

void RangePanel::cmdLoad_Click() {
  bench_.AdviseOnFailure("Tick the epochs to load. Define Epochs, Get Event IDs finds their records.");
  const EpochRange range = RangeOfSelected(multipleEpochs_->Choices());
  txtStartEvent->setText(QString::number(range.StartRecord));
  txtEndEvent->setText(QString::number(range.EndRecord));
  txtStartTime->setText(QString::fromStdString(range.StartTime));
  txtEndTime->setText(QString::fromStdString(range.EndTime));
  const bool before = std::exchange(session_.MultipleEpochs, true);
  SetRecordRanges();
  try {
    LoadRange(range.StartRecord, range.EndRecord);
  } catch (...) {
    session_.MultipleEpochs = before;
    SetRecordRanges();
    throw;
  }
  if (session_.Points.Column(kRecordSlot)[0] != static_cast<float>(session_.LoadStartRecord))
    bench_.AppendMessage(
        "This parameter file does not contain the spikes' record numbers: tick \"Display Points in between "
        "epochs\" and redraw to see points.");
}

void RangePanel::frmLoadMultipleEpochs_Unload() {
  for (QLineEdit* box : {txtStartEvent, txtEndEvent, txtStartTime, txtEndTime}) box->clear();
  GiveUpRange(session_);
  session_.MultipleEpochs = false;
  multipleEpochs_ = nullptr;
  SetRecordRanges();
  cmdLoadPoints->setEnabled(true);
  projections_.ShowHint();
  bench_.Say("To load the whole recording again, type Start and End into the record boxes, pressing Enter after each.");
}

void RangePanel::SetRecordRanges() {
  if (session_.MultipleEpochs && multipleEpochs_)
    projections_.SetRecordRanges(multipleEpochs_->RecordRanges());
  else
    projections_.SetRecordRanges({});
}

}  // namespace pallomir
