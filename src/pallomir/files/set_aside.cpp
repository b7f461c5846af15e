#include "pallomir/files/set_aside.h"

#include <chrono>
#include <ctime>

#include "pallomir/files/file_utility.h"
#include "pallomir/files/platform.h"

namespace pallomir {

namespace fs = std::filesystem;

std::string LocalTime(fs::file_time_type time, const char* format) {
  const auto system = std::chrono::time_point_cast<std::chrono::system_clock::duration>(
      time - fs::file_time_type::clock::now() + std::chrono::system_clock::now());
  return LocalTime(std::chrono::system_clock::to_time_t(system), format);
}

fs::path SetAside(const fs::path& path) {
  std::error_code error;
  const std::string date = LocalTime(fs::last_write_time(path, error), "%Y%m%d-%H%M%S");
  fs::path aside;
  for (int attempt = 1; aside.empty() || fs::exists(fs::symlink_status(aside, error)); ++attempt) {
    aside = path;
    aside.replace_extension('.' + date + (attempt > 1 ? '-' + std::to_string(attempt) : ""));
    aside += path.extension();
  }
  FileUtility::RenameFile(path, aside);
  return aside;
}

}  // namespace pallomir
