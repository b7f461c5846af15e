#include "pallomir/session/start_up.h"

#include <vector>

#include "pallomir/files/file_fault.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/file_utility.h"
#include "pallomir/files/parameter_header.h"
#include "pallomir/files/platform.h"

namespace pallomir {

namespace {

std::filesystem::path OnlyRecordingIn(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> found;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
    if (NameText(entry->path()).ends_with(".Ntt.parms") && !entry->is_directory(error)) found.push_back(entry->path());
  if (error) throw FaultOfPath(ErrorKind::Unreadable, folder, "cannot be read");
  if (found.empty()) throw FaultOfPath(ErrorKind::Missing, folder, "holds no recording (a parameter file, .Ntt.parms)");
  if (found.size() > 1)
    throw FaultOfPath(ErrorKind::Refused, folder,
                      "holds " + std::to_string(found.size()) + " recordings: choose one of its .Ntt.parms files");
  return found.front();
}

}  // namespace

void OpenParameterFile(Session& session, const std::filesystem::path& path) {
  if (!IsParameterFileName(path)) throw ProgramEnd("File name must end in a .Ntt.parms extension. Exiting program.");
  FileReader file(path);
  const long header = ParameterHeaderLength(file);
  if (header < 0)
    throw FaultOf(ErrorKind::Foreign, file.Path(),
                  "is not recognised as a parameter file: no spikes were found after a Pallomir header, an "
                  "acquisition-system header or a few lines of text, nor at the start of the file");
  session.File = {path, header, RowCount(file.Length(), header)};
}

std::filesystem::path RecordingAt(const std::filesystem::path& path) {
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) return OnlyRecordingIn(path);
  if (!IsParameterFileName(path))
    throw FaultOf(ErrorKind::Refused, path, "is not a recording: the name of a parameter file ends in .Ntt.parms");
  if (!FileUtility::FileExists(path)) throw NotPresent(path);
  return path;
}

void InitialiseSession(Session& session) {
  session.RandomX = session.RandomY = false;
  session.AutomaticRedraw = true;
  session.FirstLoad = true;
  session.PointSize = 0.5F;
  session.Display.fill(true);
  session.AxisMaximum.fill(100.0F);
  session.XParameter = 0;
  session.YParameter = 1;
}

}  // namespace pallomir
