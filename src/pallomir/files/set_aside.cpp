#include "pallomir/files/set_aside.h"

#include <chrono>
#include <ctime>

#include "pallomir/files/file_utility.h"

namespace pallomir {

namespace fs = std::filesystem;

std::string LocalTime(fs::file_time_type time, const char* format) {
  const auto system = std::chrono::time_point_cast<std::chrono::system_clock::duration>(
      time - fs::file_time_type::clock::now() + std::chrono::system_clock::now());
  const std::time_t seconds = std::chrono::system_clock::to_time_t(system);
  char text[32];
  std::strftime(text, sizeof text, format, std::localtime(&seconds));
  return text;
}

fs::path SetAside(const fs::path& file) {
  std::error_code error;
  const std::string date = LocalTime(fs::last_write_time(file, error), "%Y%m%d-%H%M%S");
  fs::path aside;
  for (int attempt = 1; aside.empty() || fs::exists(fs::symlink_status(aside, error)); ++attempt) {
    aside = file;
    aside.replace_extension('.' + date + (attempt > 1 ? '-' + std::to_string(attempt) : ""));
    aside += file.extension();
  }
  FileUtility::RenameFile(file, aside);
  return aside;
}

}  // namespace pallomir
