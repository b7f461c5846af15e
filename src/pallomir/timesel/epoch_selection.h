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

/// Whether row `row` may be selected beside the rows that are. Throws CommandError when it has no record numbers, when
/// one is not a number, or when one of its two ends lies within a row that is selected; a row that wholly encloses a
/// selected one passes.
void CheckSelection(const EpochChoices& rows, size_t row);

/// The range that holds all selected rows.
struct EpochRange {
  int32_t StartRecord = 0;
  int32_t EndRecord = 0;
  std::string StartTime, EndTime;
};

/// From the smallest start to the largest end; all zero and empty when nothing is selected. Throws CommandError for a
/// record number that is not one.
EpochRange RangeOfSelected(const EpochChoices& rows);

}  // namespace pallomir
