#include "tools/import/position_file.h"

#include <string>

#include "files/number_text.h"
#include "files/platform.h"
#include "files/save_file.h"
#include "files/text_header.h"

namespace pallomir {

namespace {

constexpr size_t kWriteSize = size_t{1} << 18;

}  // namespace

void WritePositionFile(const std::filesystem::path& path, const Tracking& tracking, double pixelsPerCm,
                       std::string_view date) {
  SaveFile file(PathText(path));
  std::string text = TextHeader("PosFile", date);
  if (pixelsPerCm != 0) text.append("PixelsPerCm,").append(DoubleText(pixelsPerCm)).append("\r\n");
  for (const Frame& frame : tracking.Frames) {
    text.append(std::to_string(frame.Stamp)).append(",").append(std::to_string(frame.X)).append(",");
    text.append(std::to_string(frame.Y)).append(",").append(std::to_string(frame.Direction)).append("\r\n");
    if (text.size() < kWriteSize) continue;
    file.Write(text);
    text.clear();
  }
  file.Write(text);
  file.Commit();
}

}  // namespace pallomir
