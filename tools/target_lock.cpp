#include "tools/target_lock.h"

#include <chrono>
#include <thread>

#include "files/error.h"
#include "files/platform.h"
#include "files/save_file.h"

namespace pallomir {

TargetLock::TargetLock(const std::string& folder, std::string_view tetrode, std::ostream& say)
    : folder_(PlatformPath(folder)) {
  constexpr std::chrono::milliseconds kWait{100};
  for (bool said = false;; said = true) {
    // Who was waited for may have removed it.
    std::error_code error;
    made_ = std::filesystem::create_directories(folder_, error) || made_;
    if (error) throw CommandError("The folder " + folder + " cannot be made (" + error.message() + ").");
    target_ = FolderLock(folder);
    if (!target_.Taken()) break;
    if (!said) say << "Waiting for " << target_.Holder() << ", which is at work in " << folder << ".\n" << std::flush;
    std::this_thread::sleep_for(kWait);
  }
  const std::string inner = PathText(folder_ / PlatformPath(tetrode));
  tetrode_ = FolderLock(inner);
  if (tetrode_.Taken())
    throw CommandError(inner + " is open in another program (" + tetrode_.Holder() + "); nothing was written.");
  for (const std::string& place : {folder, inner}) RemoveLeftovers(place);
}

TargetLock::~TargetLock() {
  tetrode_ = FolderLock();
  target_ = FolderLock();
  std::error_code error;
  if (made_) std::filesystem::remove(folder_, error);
}

}  // namespace pallomir
