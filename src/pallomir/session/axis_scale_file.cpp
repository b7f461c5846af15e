#include "pallomir/session/axis_scale_file.h"

#include "pallomir/files/file_fault.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/file_utility.h"
#include "pallomir/files/number_text.h"
#include "pallomir/files/platform.h"
#include "pallomir/files/save_file.h"
#include "pallomir/files/text_items.h"

namespace pallomir {

std::filesystem::path AxesScaleFilePath(const Session& session) {
  return PathIn(session.DataDirectory, "AxesScaleFile");
}

void WriteAxesScaleFile(const Session& session) {
  std::string text;
  for (int p = 0; p < kParameters; ++p)
    text += SingleText(session.AxisMaximum[p]) + "," + SingleText(session.AxisMinimum[p]) + "\r\n";
  SaveFile file(AxesScaleFilePath(session));
  file.Write(text);
  file.Commit();
}

void ReadAxesScaleFile(Session& session) {
  const std::filesystem::path path = AxesScaleFilePath(session);
  if (!FileUtility::FileExists(path)) throw NotPresent(path);
  const std::string text = ReadText(path);
  TextItems items(text, path);
  auto maximum = session.AxisMaximum, minimum = session.AxisMinimum;
  for (int p = 0; p < kParameters; ++p) {
    maximum[p] = items.Single();
    minimum[p] = items.Single();
  }
  session.AxisMaximum = maximum;
  session.AxisMinimum = minimum;
}

}  // namespace pallomir
