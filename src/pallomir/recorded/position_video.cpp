#include "pallomir/recorded/position_video.h"

#include <algorithm>
#include <cmath>

#include "pallomir/files/bytes.h"
#include "pallomir/files/raw_header.h"
#include "pallomir/files/raw_layout.h"

namespace pallomir {

namespace {

constexpr size_t kFrameBytes = kVideoLayout.RecordBytes;
constexpr int kPixelLimit = 100'000;

PositionSample FrameAt(const unsigned char* record) {
  const auto coordinate = [record](size_t offset) {
    return static_cast<double>(LoadLittleEndian<int32_t>(record + offset));
  };
  const auto stamp = LoadLittleEndian<uint64_t>(record + kVideoLayout.StampOffset);
  return {static_cast<int64_t>(std::min<uint64_t>(stamp, INT64_MAX)), coordinate(kFrameX), coordinate(kFrameY),
          coordinate(kFrameAngle)};
}

bool FramesMakeSense(std::string_view beginning) {
  bool allZero = true;
  for (size_t f = 0; f < kFramesLookedAt && (f + 1) * kFrameBytes <= beginning.size(); ++f) {
    const auto* record = reinterpret_cast<const unsigned char*>(beginning.data()) + f * kFrameBytes;
    const auto stamp = LoadLittleEndian<uint64_t>(record + kVideoLayout.StampOffset);
    const PositionSample frame = FrameAt(record);
    if (stamp >= kStampLimit || std::abs(frame.X) > kPixelLimit || std::abs(frame.Y) > kPixelLimit) return false;
    allZero = allZero && stamp == 0;
  }
  return !allZero;
}

/// True unless the header has a "-RecordSize" other than that of frames.
bool NamesFrameSize(std::string_view header) {
  const std::vector<double> size = HeaderNumbers(header, "RecordSize");
  return size.empty() || size[0] == kFrameBytes;
}

}  // namespace

std::optional<size_t> VideoHeaderLength(std::string_view beginning, uint64_t fileLength) {
  if (beginning.starts_with('#') && beginning.size() >= kRawHeaderLength) {
    if (!NamesFrameSize(beginning.substr(0, kRawHeaderLength))) return {};
    const bool empty = fileLength < kRawHeaderLength + kFrameBytes;
    if (empty || FramesMakeSense(beginning.substr(kRawHeaderLength))) return kRawHeaderLength;
  }
  if (FramesMakeSense(beginning)) return 0;
  return {};
}

void AppendFrame(Positions& positions, const unsigned char* record) {
  const PositionSample frame = FrameAt(record);
  if (frame.Time > kFarthestStamp)
    ++positions.Unreadable;
  else
    AppendSample(positions, frame);
}

void ReadFrames(FileReader& file, size_t header, const Progress& progress, Positions& positions) {
  constexpr size_t kBlockFrames = (size_t{1} << 20) / kFrameBytes;
  const uint64_t frames = (file.Length() - header) / kFrameBytes;
  std::vector<unsigned char> block(kBlockFrames * kFrameBytes);
  for (uint64_t first = 0; first < frames; first += kBlockFrames) {
    const size_t count = static_cast<size_t>(std::min<uint64_t>(kBlockFrames, frames - first));
    file.Read(header + first * kFrameBytes, block.data(), count * kFrameBytes);
    for (size_t f = 0; f < count; ++f) AppendFrame(positions, block.data() + f * kFrameBytes);
    progress.Reached(static_cast<double>(first) / static_cast<double>(frames));
  }
}

}  // namespace pallomir
