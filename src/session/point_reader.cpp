#include "session/point_reader.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <new>
#include <optional>
#include <vector>

#include "files/bytes.h"
#include "files/error.h"
#include "files/file_reader.h"
#include "files/file_utility.h"
#include "files/number_text.h"
#include "files/parameter_header.h"
#include "files/platform.h"
#include "files/text_items.h"
#include "session/start_up.h"
#include "session/transpose.h"

namespace pallomir {

namespace {

constexpr int kProgressMaximum = 32767;
constexpr auto kPumpInterval = std::chrono::milliseconds(20);

std::optional<double> VideoRate(const std::string& path) {
  try {
    const std::string text = ReadText(path, 256);
    return NumberFromText(TextItems(text, "VideoSampling").Text());
  } catch (const CommandError&) {
    return {};
  }
}

void CheckRange(const Session& session, int32_t first, int32_t last) {
  const int64_t rows = int64_t{last} - first + 1;
  const std::string range = "Records " + std::to_string(first) + " to " + std::to_string(last);
  if (session.File.RecordCount <= 0) throw CommandError(range + " cannot be loaded: the file holds none.", "ERROR");
  if (first < 0 || last >= session.File.RecordCount)
    throw CommandError(
        range + " cannot be loaded: the file holds records 0 to " + std::to_string(session.File.RecordCount - 1) + ".",
        "ERROR");
  // The tenth of the range, to which progress is told, would be 0.
  if (rows < 6)
    throw CommandError(range + " cannot be loaded: a range holds at least 6 records, this one " +
                           std::to_string(std::max<int64_t>(rows, 0)) + ".",
                       "ERROR");
}

/// Hides the progress bar however the reading ends.
struct ProgressShown {
  explicit ProgressShown(World& world) : world_(world) { world_.ShowProgress(0); }
  ~ProgressShown() { world_.HideProgress(); }
  ProgressShown(const ProgressShown&) = delete;
  ProgressShown& operator=(const ProgressShown&) = delete;
  World& world_;
};

/// Tells the world how far the reading is, and ends it when the user wants so.
class Pacer {
 public:
  Pacer(World& world, int64_t first, int64_t rows)
      : world_(world),
        first_(first),
        tenth_(std::llrint(static_cast<double>(rows) / 10)),
        step_(static_cast<float>(rows) / 32766.0F) {}

  /// Rows up to `end` (exclusive) are read.
  void Reached(int64_t end) {
    const int64_t multiple = (end - 1) / tenth_ * tenth_;
    if (multiple >= first_ && multiple != shown_) {
      shown_ = multiple;
      const float value = static_cast<float>(multiple - first_) / step_;
      world_.ShowProgress(std::min(kProgressMaximum, static_cast<int>(std::lrint(value))));
    }
    const auto now = std::chrono::steady_clock::now();
    if (now - pumped_ < kPumpInterval) return;
    pumped_ = now;
    if (!world_.PumpEvents()) throw Interrupted();
  }

 private:
  World& world_;
  int64_t first_;
  int64_t tenth_;
  float step_;
  int64_t shown_ = -1;
  std::chrono::steady_clock::time_point pumped_ = std::chrono::steady_clock::now();
};

/// What was met while reading.
struct Findings {
  ColumnRanges Ranges;
  int64_t OddRows = 0;
  int64_t FirstOddRow = -1;
  size_t MissingBytes = 0;
};

/// Rows that are read at a time: 261 kB, which are still in the second-level cache when they are spread.
constexpr size_t kBlockRows = 30 * kTileRows;

/// A load stops before it takes the last of the machine's memory, and looks that often, in blocks.
constexpr uint64_t kMemoryLeft = 256'000'000;
constexpr size_t kMemoryBlocks = 256;

/// Reads `count` rows from row `row` on into the buffer, zeros behind them. Only the file's last row may be there in
/// part; its missing bytes are counted.
void ReadBlock(FileReader& file, long header, int64_t row, size_t count, bool last, std::vector<unsigned char>& buffer,
               Findings& findings) {
  const size_t wanted = count * kRowBytes;
  const size_t got = file.ReadUpTo(header + row * kRowBytes, buffer.data(), wanted);
  if (got < wanted && (!last || wanted - got >= kRowBytes))
    throw CommandError(file.Name() + " ended early, at record " + std::to_string(row + got / kRowBytes) + ".");
  findings.MissingBytes = wanted - got;
  std::fill(buffer.begin() + got, buffer.end(), 0);
}

/// Spreads the buffer's rows over the columns from record k on. Whole tiles: the columns are padded to take them, and
/// the buffer's rows behind `count` are zero.
void SpreadBlock(const std::vector<unsigned char>& buffer, size_t count, size_t k, PointTable& points,
                 Findings& findings) {
  ColumnPointers columns;
  for (size_t tile = 0; tile < count; tile += kTileRows) {
    const unsigned char* rows = buffer.data() + tile * kRowBytes;
    for (int p = 0; p < kParameters; ++p) columns[p] = points.Column(p).data() + k + tile;
    const bool odd = TransposeTile(rows, columns, findings.Ranges);
    for (size_t r = 0; r < std::min(kTileRows, count - tile); ++r) {
      points.Stamps()[k + tile + r] = LoadLittleEndian<uint64_t>(rows + r * kRowBytes);
      if (odd && HasOddValue(rows + r * kRowBytes) && findings.OddRows++ == 0)
        findings.FirstOddRow = static_cast<int64_t>(k + tile + r);
    }
  }
}

Findings ReadRows(FileReader& file, long header, int64_t first, PointTable& points, Pacer& pacer) {
  Findings findings;
  const size_t rows = points.Rows();
  std::vector<unsigned char> buffer(kBlockRows * kRowBytes);
  for (size_t k = 0; k < rows; k += kBlockRows) {
    const size_t count = std::min(kBlockRows, rows - k);
    if (k % (kMemoryBlocks * kBlockRows) == 0 && FreeMemory() < kMemoryLeft) throw std::bad_alloc();
    ReadBlock(file, header, first + k, count, k + count == rows, buffer, findings);
    SpreadBlock(buffer, count, k, points, findings);
    pacer.Reached(first + k + count);
  }
  return findings;
}

/// The first load of a run gives every parameter its data range, which always holds 0, and its axis.
void TakeRanges(Session& session, const Findings& findings) {
  for (int p = 0; p < kParameters; ++p) {
    const float low = findings.Ranges.Minimum(p), high = findings.Ranges.Maximum(p);
    if (high > session.DataMaximum[p]) session.DataMaximum[p] = session.AxisMaximum[p] = high;
    if (low < session.DataMinimum[p]) session.DataMinimum[p] = session.AxisMinimum[p] = low;
  }
}

void Report(World& world, const Findings& findings, int32_t first, int32_t last) {
  if (findings.OddRows > 0)
    world.AppendMessage(
        Grouped(findings.OddRows) + " of the loaded records hold values that are not numbers (the first is record " +
        std::to_string(first + findings.FirstOddRow) + "). They are kept, but not drawn on those parameters.");
  if (findings.MissingBytes > 0)
    world.AppendMessage("Record " + std::to_string(last) + " is incomplete: the file lacks its last " +
                        std::to_string(findings.MissingBytes) + " bytes, which count as 0.");
}

}  // namespace

void CheckVideoSampling(const Session& session) {
  const std::string path = session.DataDirectory + "\\..\\VideoSampling";
  if (!FileUtility::FileExists(path)) throw ProgramEnd("Video Sampling File does not exist--abort program");
  const auto rate = VideoRate(path);
  const double whole = rate ? std::nearbyint(*rate) : 0;
  if (whole != 30 && whole != 60) throw ProgramEnd("Invalid Video Sampling Rate in Video Sampling File--ABort Program");
}

void ReadPoints(Session& session, World& world, int32_t first, int32_t last) {
  CheckVideoSampling(session);
  if (IsParameterFileName(session.File.Path)) {
    CheckRange(session, first, last);
    const auto rows = static_cast<size_t>(int64_t{last} - first + 1);
    FileReader file(session.File.Path);
    try {
      PointTable points(rows);
      const ProgressShown progress(world);
      Pacer pacer(world, first, static_cast<int64_t>(rows));
      const Findings findings = ReadRows(file, session.File.HeaderLength, first, points, pacer);
      session.Points = std::move(points);
      session.LoadStartRecord = first;
      session.LoadEndRecord = last;
      if (session.FirstLoad) TakeRanges(session, findings);
      Report(world, findings, first, last);
    } catch (const std::bad_alloc&) {
      throw CommandError("There is not enough memory for records " + std::to_string(first) + " to " +
                         std::to_string(last) + " (" + Grouped(static_cast<int64_t>(rows * kRowBytes / 1'000'000)) +
                         " MB). Load a smaller range; what was loaded before is still here.");
    }
  }
  world.PumpEvents();
  session.FirstLoad = false;
}

}  // namespace pallomir
