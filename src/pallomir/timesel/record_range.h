#pragma once

#include <cstdint>
#include <optional>

#include "pallomir/session/session.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// A record and its stamp in microseconds.
struct RecordTime {
  int64_t Record = 0;
  double Time = 0;
};

/// The first record whose stamp is at or after `start`. Nothing when the parameter file's geometry is unknown. Throws
/// CommandError ("Start time is out of file range") when no record reaches it.
std::optional<RecordTime> RecordAtStart(const Session& session, World& world, double start);

/// The record before the first one whose stamp is after `end`; the last one, with a warning box, when none is. Nothing
/// when the geometry is unknown. Throws CommandError when already record 0 lies after the end.
std::optional<RecordTime> RecordAtEnd(const Session& session, World& world, double end);

/// The stamp of a record, read at (record x its bytes) behind the header, rounded to a whole byte. Nothing when the
/// geometry is unknown; throws CommandError when the file does not hold it, or it lies before record 0 by however
/// little.
std::optional<double> TimeOfRecord(const Session& session, double record);

}  // namespace pallomir
