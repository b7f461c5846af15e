#pragma once

#include <string>

#include "pallomir/session/session.h"

namespace pallomir {

/// A row of the multiple-epoch table, as typed: times in microseconds, record numbers.
struct EpochChoice {
  bool Selected = false;
  std::string Start, End;
  std::string StartID, EndID;
};

using EpochChoices = ByEpoch<EpochChoice>;

/// Checks whether row `row` may be selected in addition to the selected rows. Throws CommandError if it has no record
/// numbers, if one is not a number, or if either of its ends lies within a selected row; a row that completely encloses
/// a selected one is accepted.
void CheckSelection(const EpochChoices& rows, size_t row);

/// The range that covers all selected rows.
struct EpochRange {
  int32_t StartRecord = 0;
  int32_t EndRecord = 0;
  std::string StartTime, EndTime;
};

/// From the smallest start to the largest end; zero and empty if nothing is selected. Throws CommandError for an
/// invalid record number.
EpochRange RangeOfSelected(const EpochChoices& rows);

}  // namespace pallomir
