#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "files/folder_lock.h"

namespace pallomir {

/// Keeps other programs out of a folder that a recording is made in, for as long as this stands. Where another one
/// makes a recording there, it is waited for, and `say` is told so. What killed programs left there is removed.
class TargetLock {
 public:
  /// `folder` is made where it is missing, and removed again if it is left empty. `tetrode` is its subfolder for the
  /// tetrode's files, which another program must not have open: CommandError says who has.
  TargetLock(const std::string& folder, std::string_view tetrode, std::ostream& say);
  ~TargetLock();
  TargetLock(const TargetLock&) = delete;
  TargetLock& operator=(const TargetLock&) = delete;

 private:
  std::filesystem::path folder_;
  bool made_ = false;
  FolderLock target_, tetrode_;
};

}  // namespace pallomir
