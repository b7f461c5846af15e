#include "pallomir/session/start_up.h"

#include "pallomir/files/file_fault.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/file_utility.h"
#include "pallomir/files/parameter_header.h"

namespace pallomir {

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
