#include "tools/cut/open_cut.h"

#include <utility>

#include "pallomir/clusters/boundaries_file.h"
#include "pallomir/files/error.h"
#include "pallomir/files/file_fault.h"
#include "pallomir/files/file_utility.h"
#include "pallomir/session/start_up.h"
#include "pallomir/session/world.h"
#include "pallomir/timesel/load_points.h"

namespace pallomir {

namespace {

/// The world of a command without windows: progress goes to the command line, which may stop the work.
class CommandLineWorld : public World {
 public:
  explicit CommandLineWorld(Progress progress) : progress_(std::move(progress)) {}
  void ShowMessage(std::string_view, std::string_view) override {}
  void AppendMessage(std::string_view) override {}
  void ShowProgress(double share) override { share_ = share; }
  void HideProgress() override {}
  bool PumpEvents() override {
    progress_.Reached(share_);
    return true;
  }

 private:
  Progress progress_;
  double share_ = 0;
};

}  // namespace

void OpenCut(Session& session, const std::filesystem::path& recording, const std::filesystem::path& boundaries,
             std::optional<int64_t> from, std::optional<int64_t> to, const Progress& progress) {
  CommandLineWorld world(progress.Part(0, 0.9));
  const std::filesystem::path absolute = std::filesystem::absolute(recording);
  session.DataDirectory = absolute.parent_path();
  OpenParameterFile(session, absolute);
  InitialiseSession(session);
  if (!FileUtility::FileExists(boundaries)) throw NotPresent(boundaries);
  const int64_t last = session.File.RecordCount - 1, first = from.value_or(0), end = to.value_or(last);
  if (first < 0 || end > last || first > end)
    throw CommandError(ErrorKind::OutOfRange, "The recording has records 0 to " + std::to_string(last) + ".");
  LoadPoints(session, world, static_cast<int32_t>(first), static_cast<int32_t>(end));
  if (!ReadCBFile(session, boundaries, progress.Part(0.9, 1)))
    throw FaultOf(ErrorKind::Foreign, boundaries, "is not a boundaries file");
}

}  // namespace pallomir
