#include "pallomir/timesel/stamp_scan.h"

#include <algorithm>
#include <vector>

#include "pallomir/files/file_fault.h"
#include "pallomir/files/file_utility.h"
#include "pallomir/files/parameter_header.h"
#include "pallomir/files/raw_layout.h"
#include "pallomir/files/timestamp.h"
#include "pallomir/session/work_pace.h"

namespace pallomir {

std::optional<RecordGeometry> GeometryOf(const std::filesystem::path& path) {
  const std::string extension = FileUtility::GetExtension(path);
  if (extension == "Ntt") return RecordGeometry{kTetrodeLayout.RecordBytes, kRawHeaderLength};
  if (extension != "parms") return {};
  const long header = FileUtility::GetHeaderLength(path);
  if (header == -1) return {};
  return RecordGeometry{kRowBytes, header};
}

void ScanStamps(FileReader& file, const Session& session, World& world, const RecordGeometry& geometry,
                const std::function<bool(int64_t first, std::span<const double> stamps)>& visit) {
  constexpr int64_t kBlock = 1024;
  const int64_t count = session.File.RecordCount;
  const auto held = static_cast<size_t>(std::clamp<int64_t>(count, 0, kBlock));
  std::vector<unsigned char> bytes(held * geometry.RecordBytes);
  std::vector<double> stamps(held);
  WorkPace pace(world);
  for (int64_t first = 0; first < count; first += kBlock) {
    const auto records = static_cast<size_t>(std::min(kBlock, count - first));
    const size_t got = file.ReadUpTo(geometry.HeaderLength + first * geometry.RecordBytes, bytes.data(),
                                     records * geometry.RecordBytes);
    for (size_t r = 0; r < records; ++r) {
      const size_t offset = r * geometry.RecordBytes;
      if (offset + kStampBytes > got)
        throw EndedEarly(file.Path(), FilePlace::AtRecord(first + static_cast<int64_t>(r)));
      stamps[r] = TimestampFromBytes(bytes.data() + offset);
    }
    if (visit(first, {stamps.data(), records})) return;
    pace.Reached(static_cast<double>(first) / static_cast<double>(count));
  }
}

}  // namespace pallomir
