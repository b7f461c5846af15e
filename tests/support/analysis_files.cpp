#include "support/analysis_files.h"

#include <algorithm>
#include <cmath>

#include "files/bytes.h"
#include "files/number_text.h"
#include "files/raw_layout.h"
#include "files/text_header.h"

namespace pallomir {

Positions PositionsOf(const std::vector<SampleRow>& rows) {
  Positions positions;
  positions.Name = "Pos.p";
  for (const SampleRow& row : rows) {
    const bool lost = row.X == 0 && row.Y == 0;
    positions.Time.push_back(row.Time);
    positions.X.push_back(lost ? kNotKnown : row.X);
    positions.Y.push_back(lost ? kNotKnown : row.Y);
    positions.Direction.push_back(lost ? kNotKnown : row.Direction);
    positions.HasDirection = positions.HasDirection || row.Direction > 0;
  }
  return positions;
}

Track TrackOf(const std::vector<SampleRow>& rows) {
  return TrackWithin(PositionsOf(rows), {-kFarthestStamp, kFarthestStamp});
}

std::string VideoFrame(uint64_t stamp, int32_t x, int32_t y, int32_t angle) {
  std::string bytes(kVideoLayout.RecordBytes, '\0');
  auto* record = reinterpret_cast<unsigned char*>(bytes.data());
  StoreLittleEndian(record + kVideoLayout.StampOffset, stamp);
  StoreLittleEndian(record + kFrameX, x);
  StoreLittleEndian(record + kFrameY, y);
  StoreLittleEndian(record + kFrameAngle, angle);
  return bytes;
}

AnalysisFiles PutSpikes(const TemporaryFolder& folder, std::pair<double, double> range,
                        const std::vector<int64_t>& spikes) {
  std::string cluster = TextHeader("Cl-File"), time = TextHeader("TFile");
  cluster += DoubleText(range.first) + "\r\n" + DoubleText(range.second) + "\r\n";
  for (const int64_t spike : spikes) {
    cluster += "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17," + std::to_string(spike) + "\r\n";
    time += std::to_string(spike) + "\r\n";
  }
  return {folder.Put("cl-tmp", cluster), folder.Put("ttmp", time)};
}

}  // namespace pallomir
