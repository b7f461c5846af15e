#include "timesel/record_range.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "files/error.h"
#include "files/file_reader.h"
#include "files/file_utility.h"
#include "files/number_text.h"
#include "files/parameter_header.h"
#include "timesel/timestamp.h"

namespace pallomir {

namespace {

/// Where the records of a file lie.
struct Geometry {
  size_t RecordBytes;
  long Header;
};

/// By the file name's extension; nothing for an unknown one or an unreadable header.
std::optional<Geometry> GeometryOf(const std::string& path) {
  const std::string extension = FileUtility::GetExtension(path);
  if (extension == "Ntt") return Geometry{304, 16384};
  if (extension != "parms") return {};
  const long header = FileUtility::GetHeaderLength(path);
  if (header == -1) return {};
  return Geometry{kRowBytes, header};
}

std::string HeldRecords(const Session& session) {
  if (session.File.RecordCount <= 0) return "the file holds none.";
  return "the file holds records 0 to " + std::to_string(session.File.RecordCount - 1) + ".";
}

double StampAt(FileReader& file, const Session& session, const Geometry& geometry, double record) {
  const double position =
      std::nearbyint(record * static_cast<double>(geometry.RecordBytes) + static_cast<double>(geometry.Header));
  unsigned char stamp[kStampBytes];
  // Before record 0 lies the header; and no file is longer than 9e18 bytes.
  const bool readable = std::nearbyint(record) >= 0 && position < 9e18;
  if (!readable || file.ReadUpTo(static_cast<uint64_t>(position), stamp, sizeof stamp) < sizeof stamp)
    throw CommandError("Record " + DoubleText(record) + " is not in " + file.Name() + ": " + HeldRecords(session),
                       "ERROR");
  return TimestampFromBytes(stamp);
}

/// The first record whose stamp fulfils `found`, scanning from record 0 in large reads. -1 when none does.
template <class Condition>
RecordTime FirstRecord(FileReader& file, const Session& session, World& world, const Geometry& geometry,
                       Condition found) {
  const int64_t count = session.File.RecordCount;
  constexpr int64_t kBlock = 4096;
  std::vector<unsigned char> buffer(static_cast<size_t>(std::min(count, kBlock)) * geometry.RecordBytes);
  for (int64_t first = 0; first < count; first += kBlock) {
    const int64_t records = std::min(kBlock, count - first);
    const size_t got = file.ReadUpTo(geometry.Header + first * geometry.RecordBytes, buffer.data(),
                                     static_cast<size_t>(records) * geometry.RecordBytes);
    for (int64_t r = 0; r < records; ++r) {
      const size_t place = static_cast<size_t>(r) * geometry.RecordBytes;
      if (place + kStampBytes > got)
        throw CommandError(file.Name() + " ended early, at record " + std::to_string(first + r) + ".");
      const double time = TimestampFromBytes(buffer.data() + place);
      if (found(time)) return {first + r, time};
    }
    if (first % (kBlock * 64) == 0 && !world.PumpEvents()) throw Interrupted();
  }
  return {-1, 0};
}

}  // namespace

std::optional<RecordTime> RecordAtStart(const Session& session, World& world, double start) {
  const auto geometry = GeometryOf(session.File.Path);
  if (!geometry) return {};
  FileReader file(session.File.Path);
  const RecordTime found = FirstRecord(file, session, world, *geometry, [=](double time) { return time >= start; });
  if (found.Record < 0) throw CommandError("Start time is out of file range", "ERROR");
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
