#include "pallomir/session/point_reader.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <optional>
#include <utility>

#include "pallomir/files/file_fault.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/file_utility.h"
#include "pallomir/files/number_text.h"
#include "pallomir/files/parameter_header.h"
#include "pallomir/files/platform.h"
#include "pallomir/files/text_items.h"
#include "pallomir/session/row_reader.h"
#include "pallomir/session/start_up.h"

namespace pallomir {

namespace {

std::optional<double> VideoRate(const std::filesystem::path& path) {
  try {
    const std::string text = ReadText(path, 256);
    return NumberFromText(TextItems(text, "VideoSampling").Text());
  } catch (const CommandError&) {
    return {};
  }
}

void CheckRange(const Session& session, int32_t first, int32_t last) {
  const int64_t rows = int64_t{last} - first + 1;
  const auto refuse = [&](const std::string& why) {
    throw CommandError(ErrorKind::OutOfRange, "Records " + std::to_string(first) + " to " + std::to_string(last) +
                                                  " cannot be loaded: " + why + ".");
  };
  if (session.File.RecordCount <= 0) refuse("the file holds none");
  if (first < 0 || last >= session.File.RecordCount)
    refuse("the file holds records 0 to " + std::to_string(session.File.RecordCount - 1));
  // With fewer rows, the tenth of the range at which progress is shown would be 0.
  if (rows < 6)
    refuse("a range must hold at least 6 records, this one holds " + std::to_string(std::max<int64_t>(rows, 0)));
}

/// The first load of a run sets every parameter's data range, which always includes 0, and its axis.
void TakeRanges(Session& session, const RowFindings& findings) {
  for (int p = 0; p < kParameters; ++p) {
    const float low = findings.Ranges.Minimum(p), high = findings.Ranges.Maximum(p);
    if (high > session.DataMaximum[p]) session.DataMaximum[p] = session.AxisMaximum[p] = high;
    if (low < session.DataMinimum[p]) session.DataMinimum[p] = session.AxisMinimum[p] = low;
  }
}

void TakeZeros(Session& session, const RowFindings& findings) {
  for (int p = 0; p < kParameters; ++p)
    session.AllZero[p] = findings.Ranges.Minimum(p) == 0 && findings.Ranges.Maximum(p) == 0;
}

void Report(World& world, const RowFindings& findings, int32_t first, int32_t last) {
  if (findings.OddRows > 0)
    world.AppendMessage(
        Grouped(findings.OddRows) + " of the loaded records contain values that are not numbers (the first is record " +
        std::to_string(first + findings.FirstOddRow) + "). They are kept, but not drawn on those parameters.");
  if (findings.MissingBytes > 0)
    world.AppendMessage("Record " + std::to_string(last) + " is incomplete: the file lacks its last " +
                        std::to_string(findings.MissingBytes) + " bytes, which are taken as 0.");
}

/// The file must be the one whose records were counted. If it was replaced, the new one is counted for the next load.
void CheckSameFile(ParameterFile& opened, FileReader& file) {
  const long header = ParameterHeaderLength(file);
  if (header < 0)
    throw FaultOf(ErrorKind::Foreign, file.Path(),
                  "is no longer a parameter file: it has been replaced since it was opened. Put the right file "
                  "back and load again; the points loaded before are still here");
  const int64_t records = RowCount(file.Length(), header);
  if (header == opened.HeaderLength && records == opened.RecordCount) return;
  const auto described = [](int64_t count, long length) {
    return Grouped(count) + " records after a header of " + Grouped(length) + " bytes";
  };
  const std::string before = described(opened.RecordCount, opened.HeaderLength);
  opened.HeaderLength = header;
  opened.RecordCount = records;
  throw FaultOf(ErrorKind::Foreign, file.Path(),
                "has been replaced since it was opened: it held " + before + " and now holds " +
                    described(records, header) +
                    ". Check the range, then load again; the points loaded before are still here");
}

/// The points that a load replaces, without their values, which can be read again.
class FormerPoints {
 public:
  /// Moves the points out of the session, which has none then.
  explicit FormerPoints(Session& session)
      : points_(std::exchange(session.Points, PointTable())),
        first_(std::exchange(session.LoadStartRecord, 0)),
        last_(std::exchange(session.LoadEndRecord, 0)) {
    if (first_ != 0 || last_ != 0) points_.ReleaseValues();
  }

  /// Restores the points and returns an empty text, or a sentence for the user if that fails.
  std::string PutBack(Session& session, World& world, FileReader& file) {
    if (first_ == 0 && last_ == 0) {
      session.Points = std::move(points_);
      return {};
    }
    world.StopHeard();
    const std::string why = ReadAgain(session.File.HeaderLength, world, file);
    if (!why.empty())
      return "The points loaded before could not be read again (" + why + "): no points are loaded now.";
    session.Points = std::move(points_);
    session.LoadStartRecord = first_;
    session.LoadEndRecord = last_;
    return {};
  }

 private:
  std::string ReadAgain(long header, World& world, FileReader& file) {
    try {
      PointTable again(points_.Rows());
      ReadRows(file, header, first_, again, world);
      if (!std::ranges::equal(again.Stamps(), points_.Stamps())) return file.Name() + " now holds other spikes there";
      points_.TakeValues(std::move(again));
      return {};
    } catch (const std::bad_alloc&) {
      return "there is not enough memory";
    } catch (const Interrupted&) {
      return "this was stopped as well";
    } catch (const CommandError& error) {
      return std::string(error.what(), std::string_view(error.what()).find_last_not_of('.') + 1);
    }
  }

  PointTable points_;
  int32_t first_, last_;
};

/// Replaces the loaded rows. Their memory is released first: two tables at once would take twice the memory. If the
/// load fails, the former points are restored before the exception is passed on.
void Load(Session& session, World& world, FileReader& file, int32_t first, int32_t last) {
  const auto rows = static_cast<size_t>(int64_t{last} - first + 1);
  FormerPoints former(session);
  try {
    PointTable points(rows);
    const RowFindings findings = ReadRows(file, session.File.HeaderLength, first, points, world);
    session.Points = std::move(points);
    session.LoadStartRecord = first;
    session.LoadEndRecord = last;
    if (session.FirstLoad) TakeRanges(session, findings);
    TakeZeros(session, findings);
    Report(world, findings, first, last);
  } catch (const std::bad_alloc&) {
    const std::string lost = former.PutBack(session, world, file);
    throw CommandError(ErrorKind::NoMemory,
                       "There is not enough memory for records " + std::to_string(first) + " to " +
                           std::to_string(last) + " (" + Grouped(static_cast<int64_t>(rows * kRowBytes / 1'000'000)) +
                           " MB). Load a smaller range" +
                           (lost.empty() ? "; the points loaded before are still here." : ". " + lost));
  } catch (const CommandError& error) {
    const std::string lost = former.PutBack(session, world, file);
    throw error.With(lost.empty() ? "" : " " + lost);
  } catch (const Interrupted&) {
    if (const std::string lost = former.PutBack(session, world, file); !lost.empty()) world.AppendMessage(lost);
    throw;
  }
}

}  // namespace

void CheckVideoSampling(const Session& session) {
  const std::filesystem::path path = PathIn(session.DataDirectory, "..\\VideoSampling");
  if (!FileUtility::FileExists(path)) throw ProgramEnd("Video Sampling File does not exist--abort program");
  const auto rate = VideoRate(path);
  const double whole = rate ? std::nearbyint(*rate) : 0;
  if (whole != 30 && whole != 60) throw ProgramEnd("Invalid Video Sampling Rate in Video Sampling File--ABort Program");
}

void ReadPoints(Session& session, World& world, int32_t first, int32_t last) {
  CheckVideoSampling(session);
  if (IsParameterFileName(session.File.Path)) {
    FileReader file(session.File.Path);
    CheckSameFile(session.File, file);
    CheckRange(session, first, last);
    Load(session, world, file, first, last);
  }
  world.PumpEvents();
  session.FirstLoad = false;
}

}  // namespace pallomir
