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

/// The first record whose stamp is at or after `start`. Empty if the parameter file's geometry is unknown. Throws
/// CommandError ("Start time is out of file range") if there is no such record.
std::optional<RecordTime> RecordAtStart(const Session& session, World& world, double start);

/// The record before the first one whose stamp is after `end`; the last record, with a warning box, if there is none.
/// Empty if the geometry is unknown. Throws CommandError if record 0 is already after `end`.
std::optional<RecordTime> RecordAtEnd(const Session& session, World& world, double end);

/// The stamp of a record, read at (record x its bytes) after the header, rounded to a whole byte. Empty if the geometry
/// is unknown; throws CommandError if the file does not contain the record, or its offset is before record 0, however
/// little.
std::optional<double> TimeOfRecord(const Session& session, double record);

}  // namespace pallomir
