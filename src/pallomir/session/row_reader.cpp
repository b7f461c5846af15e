#include "pallomir/session/row_reader.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <new>
#include <span>
#include <string>
#include <vector>

#include "pallomir/files/bytes.h"
#include "pallomir/files/file_fault.h"
#include "pallomir/files/parameter_header.h"
#include "pallomir/files/platform.h"

namespace pallomir {

namespace {

constexpr auto kPumpInterval = std::chrono::milliseconds(20);

/// Hides the progress bar on every exit from reading.
struct ProgressShown {
  explicit ProgressShown(World& world) : world_(world) { world_.ShowProgress(0); }
  ~ProgressShown() { world_.HideProgress(); }
  ProgressShown(const ProgressShown&) = delete;
  ProgressShown& operator=(const ProgressShown&) = delete;
  World& world_;
};

/// Reports the progress of reading, and throws Interrupted if the user stops it.
class Pacer {
 public:
  Pacer(World& world, int64_t first, int64_t rows)
      : world_(world),
        pumped_(world.Now()),
        first_(first),
        tenth_(std::llrint(static_cast<double>(rows) / 10)),
        rows_(static_cast<double>(rows)) {}

  /// Rows before `end` have been read.
  void Reached(int64_t end) {
    const int64_t multiple = (end - 1) / tenth_ * tenth_;
    if (multiple >= first_ && multiple != shown_) {
      shown_ = multiple;
      world_.ShowProgress(static_cast<double>(multiple - first_) / rows_);
    }
    const auto now = world_.Now();
    if (now - pumped_ < kPumpInterval) return;
    pumped_ = now;
    if (!world_.PumpEvents()) throw Interrupted();
  }

 private:
  World& world_;
  World::Clock::time_point pumped_;
  int64_t first_;
  int64_t tenth_;
  double rows_;
  int64_t shown_ = -1;
};

/// Rows read at a time: 261 kB, still in the second-level cache when they are transposed.
constexpr size_t kBlockRows = 30 * kTileRows;

/// Memory left free on the machine, in bytes, and the number of blocks between checks for it.
constexpr uint64_t kMemoryLeft = 256'000'000;
constexpr size_t kMemoryBlocks = 256;

/// Throws std::bad_alloc unless there is memory for `rows` more rows, the first of which are in the buffer. Columns of
/// channels that were not recorded, which are most in most recordings, take no memory.
void CheckMemory(const std::vector<unsigned char>& buffer, size_t rows) {
  std::array<bool, kParameters> used{};
  for (size_t row = 0; row < kBlockRows; ++row) {
    const unsigned char* values = buffer.data() + row * kRowBytes + kStampBytes;
    for (int p = 0; p < kParameters; ++p)
      used[p] = used[p] || LoadLittleEndian<uint32_t>(values + p * sizeof(float)) != 0;
  }
  const auto columns = static_cast<size_t>(std::count(used.begin(), used.end(), true));
  if (FreeMemory() < kMemoryLeft + rows * (columns * sizeof(float) + kStampBytes)) throw std::bad_alloc();
}

/// Reads `count` rows from row `row` into the buffer and fills the rest with zeros. Only the file's last row may be
/// incomplete; its missing bytes are counted.
void ReadBlock(FileReader& file, long header, int64_t row, size_t count, bool last, std::vector<unsigned char>& buffer,
               RowFindings& findings) {
  const size_t wanted = count * kRowBytes;
  const size_t got = file.ReadUpTo(header + row * kRowBytes, buffer.data(), wanted);
  if (got < wanted && (!last || wanted - got >= kRowBytes))
    throw EndedEarly(file.Path(), FilePlace::AtRecord(row + static_cast<int64_t>(got / kRowBytes)));
  findings.MissingBytes = wanted - got;
  std::ranges::fill(std::span(buffer).subspan(got), 0);
}

/// Transposes the buffer's rows into the columns from record k. Uses whole tiles: the columns have padding for them,
/// and the buffer's rows after `count` are zero.
void SpreadBlock(const std::vector<unsigned char>& buffer, size_t count, size_t k, PointTable& points,
                 RowFindings& findings) {
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

}  // namespace

RowFindings ReadRows(FileReader& file, long header, int64_t first, PointTable& points, World& world) {
  const size_t rows = points.Rows();
  const ProgressShown progress(world);
  Pacer pacer(world, first, static_cast<int64_t>(rows));
  RowFindings findings;
  std::vector<unsigned char> buffer(kBlockRows * kRowBytes);
  for (size_t k = 0; k < rows; k += kBlockRows) {
    const size_t count = std::min(kBlockRows, rows - k);
    const int64_t row = first + static_cast<int64_t>(k);
    ReadBlock(file, header, row, count, k + count == rows, buffer, findings);
    if (k % (kMemoryBlocks * kBlockRows) == 0) CheckMemory(buffer, rows - k);
    SpreadBlock(buffer, count, k, points, findings);
    pacer.Reached(row + static_cast<int64_t>(count));
  }
  return findings;
}

}  // namespace pallomir
