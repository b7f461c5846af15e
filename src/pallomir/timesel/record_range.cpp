#include "pallomir/timesel/record_range.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "pallomir/files/error.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/number_text.h"
#include "pallomir/files/parameter_header.h"
#include "pallomir/files/timestamp.h"
#include "pallomir/timesel/stamp_scan.h"

namespace pallomir {

namespace {

std::string HeldRecords(const Session& session) {
  if (session.File.RecordCount <= 0) return "the file holds none.";
  return "the file holds records 0 to " + std::to_string(session.File.RecordCount - 1) + ".";
}

double StampAt(FileReader& file, const Session& session, const RecordGeometry& geometry, double record) {
  const double position =
      std::nearbyint(record * static_cast<double>(geometry.RecordBytes) + static_cast<double>(geometry.HeaderLength));
  unsigned char stamp[kStampBytes];
  // An offset before record 0, even by a part of a record, is in the header; no file is longer than 9e18 bytes.
  const bool readable = position >= static_cast<double>(geometry.HeaderLength) && position < 9e18;
  if (!readable || file.ReadUpTo(static_cast<uint64_t>(position), stamp, sizeof stamp) < sizeof stamp)
    throw CommandError(ErrorKind::OutOfRange,
                       "Record " + DoubleText(record) + " is not in " + file.Name() + ": " + HeldRecords(session),
                       file.Path());
  return TimestampFromBytes(stamp);
}

/// The first record for which `found` is true of its stamp, scanning from record 0; -1 if there is none.
template <class Condition>
RecordTime FirstRecord(FileReader& file, const Session& session, World& world, const RecordGeometry& geometry,
                       Condition found) {
  RecordTime result{-1, 0};
  ScanStamps(file, session, world, geometry, [&](int64_t first, std::span<const double> stamps) {
    const auto at = std::find_if(stamps.begin(), stamps.end(), found);
    if (at == stamps.end()) return false;
    result = {first + (at - stamps.begin()), *at};
    return true;
  });
  return result;
}

}  // namespace

std::optional<RecordTime> RecordAtStart(const Session& session, World& world, double start) {
  const auto geometry = GeometryOf(session.File.Path);
  if (!geometry) return {};
  FileReader file(session.File.Path);
  const RecordTime found = FirstRecord(file, session, world, *geometry, [=](double time) { return time >= start; });
  if (found.Record < 0) throw CommandError(ErrorKind::OutOfRange, "Start time is out of file range", file.Path());
  return found;
}

std::optional<RecordTime> RecordAtEnd(const Session& session, World& world, double end) {
  const auto geometry = GeometryOf(session.File.Path);
  if (!geometry) return {};
  FileReader file(session.File.Path);
  const RecordTime after = FirstRecord(file, session, world, *geometry, [=](double time) { return time > end; });
  const bool none = after.Record < 0;
  RecordTime last;
  last.Record = (none ? session.File.RecordCount : after.Record) - 1;
  last.Time = StampAt(file, session, *geometry, static_cast<double>(last.Record));
  if (none) world.ShowMessage("Last spike in data file occurs before end time", "WARNING");
  return last;
}

std::optional<double> TimeOfRecord(const Session& session, double record) {
  const auto geometry = GeometryOf(session.File.Path);
  if (!geometry) return {};
  FileReader file(session.File.Path);
  return StampAt(file, session, *geometry, record);
}

}  // namespace pallomir
