#include "pallomir/timesel/epoch_selection.h"

#include "pallomir/files/error.h"
#include "pallomir/files/number_text.h"
#include "pallomir/files/printable.h"

namespace pallomir {

namespace {

int32_t RecordNumber(size_t row, const char* box, const std::string& text) {
  const std::string place = "Epoch " + std::to_string(row) + ": the " + box;
  const auto number = NumberFromText(text);
  if (!number) throw CommandError(ErrorKind::Refused, place + " " + Quoted(text) + " is not a number.");
  return WholeNumber(*number, place);
}

int32_t StartOf(const EpochChoices& rows, size_t row) {
  return RecordNumber(row, "start record", rows[row].StartID);
}

int32_t EndOf(const EpochChoices& rows, size_t row) {
  return RecordNumber(row, "end record", rows[row].EndID);
}

bool Defined(const EpochChoice& row) {
  return !row.StartID.empty() && !row.EndID.empty();
}

}  // namespace

void CheckSelection(const EpochChoices& rows, size_t row) {
  if (!Defined(rows[row]))
    throw CommandError(ErrorKind::NotReady, "ERROR: Cannot choose an epoch with no times defined");
  const int32_t start = StartOf(rows, row), end = EndOf(rows, row);
  for (size_t other = 0; other < kEpochs; ++other) {
    if (other == row || !rows[other].Selected || !Defined(rows[other])) continue;
    const int32_t low = StartOf(rows, other), high = EndOf(rows, other);
    if ((low <= start && start <= high) || (low <= end && end <= high))
      throw CommandError(ErrorKind::Refused, "ERROR: Epoch overlaps with previously selected epoch");
  }
}

EpochRange RangeOfSelected(const EpochChoices& rows) {
  EpochRange range;
  for (size_t row = 0; row < kEpochs; ++row)
    if (rows[row].Selected && EndOf(rows, row) > range.EndRecord) {
      range.EndRecord = EndOf(rows, row);
      range.EndTime = rows[row].End;
    }
  range.StartRecord = range.EndRecord;
  for (size_t row = 0; row < kEpochs; ++row)
    if (rows[row].Selected && StartOf(rows, row) < range.StartRecord) {
      range.StartRecord = StartOf(rows, row);
      range.StartTime = rows[row].Start;
    }
  return range;
}

}  // namespace pallomir
