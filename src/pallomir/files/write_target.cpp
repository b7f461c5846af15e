#include "pallomir/files/write_target.h"

#include <algorithm>
#include <filesystem>

namespace pallomir {

namespace fs = std::filesystem;

namespace {

fs::path Resolved(const std::filesystem::path& path) {
  std::error_code error;
  const fs::path resolved = fs::weakly_canonical(path, error);
  return error ? path.lexically_normal() : resolved;
}

}  // namespace

bool IsWriteProtected(const std::filesystem::path& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  constexpr fs::perms kWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  return !error && fs::is_regular_file(status) && (status.permissions() & kWrite) == fs::perms::none;
}

fs::path PlaceOutside(const std::filesystem::path& folder, const std::filesystem::path& path) {
  const fs::path home = Resolved(folder / "."), target = Resolved(path);
  const auto ends = std::mismatch(home.begin(), home.end(), target.begin(), target.end());
  return ends.first == home.end() ? fs::path() : target;
}

}  // namespace pallomir
