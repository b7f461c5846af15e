#include "pallomir/output/spike_lines.h"

namespace pallomir {

// The format puts the record number first.
constexpr std::array<int, 17> kParametersInLine = {kRecordSlot, 0, 1, 2, 3, 4, 5, 6, 7, 9, 10, 11, 12, 13, 14, 15, 16};

SpikeLines::SpikeLines(const PointTable& points) : stamps_(points.Stamps().data()) {
  for (size_t k = 0; k < columns_.size(); ++k) columns_[k] = points.Column(kParametersInLine[k]).data();
}

char* SpikeLines::PutSpike(char* to, size_t i) const {
  for (const float* column : columns_) {
    to = PutSingle(to, column[i]);
    *to++ = ',';
  }
  return PutStamp(to, i);
}

char* SpikeLines::PutStamp(char* to, size_t i) const {
  to = PutDouble(to, static_cast<double>(stamps_[i]));
  *to++ = '\r';
  *to++ = '\n';
  return to;
}

}  // namespace pallomir
