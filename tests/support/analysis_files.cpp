#include "support/analysis_files.h"

#include "pallomir/files/bytes.h"
#include "pallomir/files/number_text.h"
#include "pallomir/files/raw_layout.h"
#include "pallomir/files/text_header.h"

namespace pallomir {

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
