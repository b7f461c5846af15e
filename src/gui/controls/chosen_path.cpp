#include "gui/controls/chosen_path.h"

#include <filesystem>

namespace pallomir {

namespace {

namespace fs = std::filesystem;

bool Exists(const fs::path& path) {
  std::error_code error;
  return fs::exists(path, error);
}

/// The entry of `folder` that Qt shows as `name`, or `name` itself unless there is exactly one such entry.
fs::path EntryCalled(const fs::path& folder, const fs::path& name) {
  const QString called = ShownPath(name);
  fs::path found;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    if (ShownPath(entry->path().filename()) != called) continue;
    if (!found.empty()) return folder / name;
    found = entry->path();
  }
  return found.empty() ? folder / name : found;
}

}  // namespace

QString ShownPath(const fs::path& path) {
  const std::u8string bytes = path.u8string();
  return QString::fromUtf8(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
}

fs::path PathOf(const QString& chosen) {
  fs::path named(chosen.toStdU16String());
  if (!chosen.contains(QChar::ReplacementCharacter)) return named;
  fs::path path;
  for (const fs::path& part : named) path = Exists(path / part) ? path / part : EntryCalled(path, part);
  return path;
}

}  // namespace pallomir
