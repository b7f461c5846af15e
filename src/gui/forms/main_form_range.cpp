// The range boxes and the loading of points.

#include <QtWidgets>

#include "gui/controls/controls.h"
#include "gui/controls/toolkit_values.h"
#include "gui/forms/main_form.h"
#include "gui/forms/range_panel.h"
#include "pallomir/files/error.h"
#include "pallomir/files/number_text.h"
#include "pallomir/timesel/load_points.h"
#include "pallomir/timesel/record_range.h"

namespace pallomir {

namespace {

void SetNumber(QLineEdit* box, double value) {
  box->setText(QString::fromStdString(PlainDecimal(value)));
}

/// The number in a record box, or `otherwise`, the record loaded before, if it has none.
int32_t RecordIn(const QLineEdit* box, int32_t otherwise) {
  const auto number = NumberIn(box);
  return number ? WholeNumber(*number, box->accessibleName().toStdString()) : otherwise;
}

}  // namespace

void Main_Form::cmdLoadPoints_Click() {
  if (range_->txtStartEvent->text().isEmpty() && range_->txtEndEvent->text().isEmpty())
    advice_ = "Type Start and End into the record boxes, Enter after each: that is the whole recording.";
  const int32_t start = RecordIn(range_->txtStartEvent, session_.LoadStartRecord);
  const int32_t end = RecordIn(range_->txtEndEvent, session_.LoadEndRecord);
  session_.MultipleEpochs = false;
  LoadRange(start, end);
  // A box without a number shows the record loaded instead.
  if (!NumberIn(range_->txtStartEvent)) range_->txtStartEvent->setText(QString::number(start));
  if (!NumberIn(range_->txtEndEvent)) range_->txtEndEvent->setText(QString::number(end));
}

void Main_Form::LoadRange(int32_t start, int32_t end) {
  QElapsedTimer clock;
  clock.start();
  const bool loaded = PointsLoaded(session_);
  try {
    Work([&] { LoadPoints(session_, *this, start, end); });
  } catch (...) {
    if (loaded && !PointsLoaded(session_)) ShowNoPoints();
    throw;
  }
  if (closing_) return;
  Redraw();
  RefreshClusters();
  const QString told = QString("%1 points loaded in %2 s.")
                           .arg(FromText(Grouped(static_cast<int64_t>(session_.Points.Rows()))))
                           .arg(static_cast<double>(clock.elapsed()) / 1000, 0, 'f', 2);
  status_->setText(TimesSpanLoaded() ? told : told + " The times beside do not span them: Enter in both record boxes.");
}

void Main_Form::ShowNoPoints() {
  projections_->Clear();
  projections_->ShowHint();
  RefreshClusters();
  stopped_ = "Stopped; no points are loaded now, and the boundaries are as they were.";
}

bool Main_Form::TimesSpanLoaded() const {
  const auto start = NumberIn(range_->txtStartTime), end = NumberIn(range_->txtEndTime);
  const auto stamps = session_.Points.Stamps().first(session_.Points.Rows());
  if (!start || !end || stamps.empty()) return false;
  const auto [first, last] = std::minmax_element(stamps.begin(), stamps.end());
  return *start <= static_cast<double>(*first) && static_cast<double>(*last) <= *end;
}

void Main_Form::txtStartTime_DblClick() {
  const auto start = NumberIn(range_->txtStartTime);
  if (!start) return;
  std::optional<RecordTime> found;
  Work([&] { found = RecordAtStart(session_, *this, *start); });
  if (!found) return;
  SetNumber(range_->txtStartTime, found->Time);
  SetNumber(range_->txtStartEvent, static_cast<double>(found->Record));
}

void Main_Form::txtEndTime_DblClick() {
  const auto end = NumberIn(range_->txtEndTime);
  if (!end) return;
  std::optional<RecordTime> found;
  Work([&] { found = RecordAtEnd(session_, *this, *end); });
  if (!found) return;
  SetNumber(range_->txtEndTime, found->Time);
  SetNumber(range_->txtEndEvent, static_cast<double>(found->Record));
}

void Main_Form::txtStartEvent_DblClick() {
  const QString text = range_->txtStartEvent->text();
  if (text == "Start" || text == "start") range_->txtStartEvent->setText("0");
  LookUpTime(range_->txtStartEvent, range_->txtStartTime);
}

void Main_Form::txtEndEvent_DblClick() {
  const QString text = range_->txtEndEvent->text();
  if (text == "End" || text == "end")
    SetNumber(range_->txtEndEvent, static_cast<double>(session_.File.RecordCount - 1));
  LookUpTime(range_->txtEndEvent, range_->txtEndTime);
}

void Main_Form::LookUpTime(QLineEdit* record, QLineEdit* time) {
  const auto number = NumberIn(record);
  if (!number) return;
  if (const auto stamp = TimeOfRecord(session_, *number)) SetNumber(time, *stamp);
}

}  // namespace pallomir
