#include "pallomir/files/write_target.h"

#include <algorithm>
#include <filesystem>

#include "pallomir/files/platform.h"

namespace pallomir {

namespace fs = std::filesystem;

namespace {

fs::path Resolved(std::string_view path) {
  std::error_code error;
  const fs::path native = PlatformPath(path), resolved = fs::weakly_canonical(native, error);
  return error ? native.lexically_normal() : resolved;
}

}  // namespace

bool IsWriteProtected(std::string_view path) {
  std::error_code error;
  const fs::file_status status = fs::status(PlatformPath(path), error);
  constexpr fs::perms kWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  return !error && fs::is_regular_file(status) && (status.permissions() & kWrite) == fs::perms::none;
}

std::string PlaceOutside(std::string_view folder, std::string_view path) {
  const fs::path home = Resolved(std::string(folder) + "\\."), place = Resolved(path);
  const auto ends = std::mismatch(home.begin(), home.end(), place.begin(), place.end());
  return ends.first == home.end() ? std::string() : PathText(place);
}

}  // namespace pallomir
