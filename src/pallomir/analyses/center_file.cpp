#include "pallomir/analyses/center_file.h"

#include "pallomir/files/error.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/file_utility.h"
#include "pallomir/files/number_text.h"
#include "pallomir/files/platform.h"
#include "pallomir/files/save_file.h"
#include "pallomir/files/text_items.h"

namespace pallomir {

std::filesystem::path CenterFilePath(const Session& session, std::string_view name) {
  return PathIn(session.DataDirectory, "..\\" + std::string(name));
}

void WriteCenterFile(const Session& session, World& world, std::string_view name, XY<float> center) {
  if (name.empty()) throw CommandError(ErrorKind::Refused, "Error: Need to specify Center File Name");
  const std::string x = SingleText(center.X), y = SingleText(center.Y);
  SaveFile file(CenterFilePath(session, name));
  file.Write(x + "," + y + "\r\n");
  file.Commit();
  world.AppendMessage("Done writing center file X=" + x + " Y=" + y);
}

std::optional<XY<float>> ReadCenterFile(const std::filesystem::path& path) {
  if (!FileUtility::FileExists(path)) return {};
  // More than enough for two numbers.
  const std::string text = ReadText(path, 4096);
  TextItems items(text, path);
  const float x = items.Single();
  const float y = items.Single();
  if (!items.AtEnd()) items.Fault("there are more values than X and Y");
  return XY<float>{x, y};
}

}  // namespace pallomir
