#include "clusters/autosave.h"

#include <chrono>
#include <ctime>
#include <filesystem>

#include "clusters/boundaries_file.h"
#include "files/error.h"
#include "files/file_reader.h"
#include "files/platform.h"
#include "files/text_header.h"

namespace pallomir {

namespace {

namespace fs = std::filesystem;

constexpr float kInterval = 300;

bool IsBoundariesFile(const fs::path& path) {
  try {
    const std::string text = ReadText(PathText(path), kTextHeaderLimit);
    const long header = TextHeaderLength(text);
    return header >= 0 && text.substr(0, static_cast<size_t>(header)).find("# Kind: CBFile") != std::string::npos;
  } catch (const CommandError&) {
    return false;
  }
}

std::string LocalTime(fs::file_time_type time) {
  const auto system = std::chrono::time_point_cast<std::chrono::system_clock::duration>(
      time - fs::file_time_type::clock::now() + std::chrono::system_clock::now());
  const std::time_t seconds = std::chrono::system_clock::to_time_t(system);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%d %H:%M", std::localtime(&seconds));
  return text;
}

}  // namespace

std::string AutosavePath(const Session& session) {
  return BoundariesFilePath(session, "cbfile.tmp");
}

bool AutosaveDue(float now, float last) {
  return now <= kInterval || now > last + kInterval;
}

std::optional<std::string> UnclaimedAutosave(const Session& session) {
  std::error_code error;
  const fs::path autosave = PlatformPath(AutosavePath(session));
  const auto saved = fs::last_write_time(autosave, error);
  if (error || !IsBoundariesFile(autosave)) return {};
  const auto header = static_cast<uint64_t>(TextHeaderLength(ReadText(PathText(autosave), kTextHeaderLimit)));
  if (header == fs::file_size(autosave, error)) return {};
  for (fs::directory_iterator entry(autosave.parent_path(), error), end; !error && entry != end;
       entry.increment(error)) {
    if (entry->path() == autosave || entry->path().extension() != ".txt" || !IsBoundariesFile(entry->path())) continue;
    const auto written = entry->last_write_time(error);
    if (!error && written >= saved) return {};
  }
  return LocalTime(saved);
}

}  // namespace pallomir
