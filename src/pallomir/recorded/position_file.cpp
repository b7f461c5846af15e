#include "pallomir/recorded/position_file.h"

#include <algorithm>

#include "pallomir/files/file_fault.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/raw_layout.h"
#include "pallomir/files/text_header.h"
#include "pallomir/recorded/angle_header.h"
#include "pallomir/recorded/position_text.h"
#include "pallomir/recorded/position_video.h"

namespace pallomir {

namespace {

/// Appends the samples of the file, as recorded.
void ReadRecorded(const std::filesystem::path& path, FileReader& file, const Progress& progress, Positions& positions) {
  const std::string beginning = ReadText(path, kRawHeaderLength + kFramesLookedAt * kVideoLayout.RecordBytes);
  const long ownHeader = TextHeaderLength(beginning);
  if (ownHeader < 0 && beginning.find('\0') != std::string::npos) {
    const auto header = VideoHeaderLength(beginning, file.Length());
    if (!header)
      throw FaultOf(ErrorKind::Foreign, file.Path(),
                    "is not a position file: it contains neither text nor video frames");
    positions.Angles = kVideoAngles;
    ReadFrames(file, *header, progress, positions);
    return;
  }
  const auto headerLength = static_cast<size_t>(std::max(ownHeader, 0L));
  positions.Angles = ConventionFrom(std::string_view(beginning).substr(0, headerLength), file.Path());
  ReadPositionText(file, headerLength, progress, positions);
}

}  // namespace

Positions ReadPositions(const std::filesystem::path& path, const Progress& progress) {
  FileReader file(path);
  Positions positions;
  positions.Name = file.Name();
  ReadRecorded(path, file, progress, positions);
  RepairSamples(positions);
  TurnAngles(positions);
  return positions;
}

}  // namespace pallomir
