#include "tools/import/position_file.h"

#include <cmath>

#include "pallomir/files/number_text.h"
#include "pallomir/files/text_header.h"
#include "pallomir/recorded/angle_header.h"

namespace pallomir {

namespace {

constexpr size_t kWriteSize = size_t{1} << 18;

/// Frames contain whole numbers.
std::string WholeText(double value, int unknown) {
  return std::to_string(std::isnan(value) ? unknown : std::lround(value));
}

}  // namespace

std::string PositionHeader(const Positions& recorded, std::string_view date) {
  return TextHeader("PosFile", date,
                    recorded.HasDirection ? HeaderEntries(recorded.Angles) : std::vector<HeaderEntry>{});
}

void WritePositions(const Positions& recorded, OutputFile& file) {
  std::string text;
  if (recorded.PixelsPerCm != 0) text.append("PixelsPerCm,").append(DoubleText(recorded.PixelsPerCm)).append("\r\n");
  for (size_t i = 0; i < recorded.Time.size(); ++i) {
    text.append(std::to_string(recorded.Time[i])).append(",").append(WholeText(recorded.X[i], 0)).append(",");
    text.append(WholeText(recorded.Y[i], 0)).append(",").append(WholeText(recorded.Direction[i], -1)).append("\r\n");
    if (text.size() < kWriteSize) continue;
    file.Write(text);
    text.clear();
  }
  file.Write(text);
}

}  // namespace pallomir
