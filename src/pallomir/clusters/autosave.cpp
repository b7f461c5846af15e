#include "pallomir/clusters/autosave.h"

#include <algorithm>
#include <filesystem>

#include "pallomir/clusters/boundaries_file.h"
#include "pallomir/files/error.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/platform.h"
#include "pallomir/files/set_aside.h"
#include "pallomir/files/text_header.h"

namespace pallomir {

namespace {

namespace fs = std::filesystem;

constexpr float kInterval = 300;

/// Prefixes of the names that the program writes; kept files have a suffix.
constexpr std::string_view kExit = "cbfile.exit", kAutosave = "cbfile.tmp";

struct CutFile {
  fs::path Path;
  fs::file_time_type Written;
  std::string Name() const { return PathText(Path.stem()); }
  bool IsOurs() const { return Name() == kExit || Name() == kAutosave; }
  bool IsKept() const {
    const std::string name = Name();
    return name.starts_with(std::string(kExit) + ".") || name.starts_with(std::string(kAutosave) + ".");
  }
  bool IsUsers() const { return !IsOurs() && !IsKept(); }
};

/// True for a boundaries file with content after its header.
bool HoldsBoundaries(const fs::path& path) {
  try {
    const std::string text = ReadText(path, kTextHeaderLimit);
    const long header = TextHeaderLength(text);
    if (header < 0 || HeaderValue(std::string_view(text).substr(0, static_cast<size_t>(header)), "Kind") != "CBFile")
      return false;
    std::error_code error;
    return fs::file_size(path, error) > static_cast<uint64_t>(header);
  } catch (const CommandError&) {
    return false;
  }
}

/// All boundaries files in the data directory that are not empty, oldest first.
std::vector<CutFile> CutsIn(const Session& session) {
  std::vector<CutFile> cuts;
  std::error_code error;
  for (fs::directory_iterator entry(session.DataDirectory / ".", error), end; !error && entry != end;
       entry.increment(error)) {
    const fs::path& path = entry->path();
    if (path.extension() != ".txt" || !HoldsBoundaries(path)) continue;
    std::error_code gone;
    const auto written = fs::last_write_time(path, gone);
    if (!gone) cuts.push_back({path, written});
  }
  std::sort(cuts.begin(), cuts.end(), [](const CutFile& a, const CutFile& b) {
    return a.Written != b.Written ? a.Written < b.Written : a.Path < b.Path;
  });
  return cuts;
}

/// The text after a file's header, as the header has the date; empty if the file cannot be read.
std::optional<std::string> BoundariesOf(const fs::path& path) {
  try {
    const std::string text = ReadText(path);
    if (const auto body = BodyBehindHeader(text)) return text.substr(body->Begin);
  } catch (const CommandError&) {
    // A file that cannot be read is never equal to another.
  }
  return {};
}

bool HoldTheSame(const fs::path& one, const fs::path& other) {
  const auto boundaries = BoundariesOf(one);
  return boundaries && boundaries == BoundariesOf(other);
}

}  // namespace

fs::path AutosavePath(const Session& session) {
  return BoundariesFilePath(session, kAutosave);
}

bool AutosaveDue(float now, float last) {
  return now <= kInterval || now > last + kInterval;
}

std::optional<FoundCut> NewerCutThan(const Session& session, std::string_view name) {
  const std::vector<CutFile> cuts = CutsIn(session);
  if (cuts.empty()) return {};
  const CutFile& newest = cuts.back();
  if (newest.Name() == name || HoldTheSame(newest.Path, BoundariesFilePath(session, name))) return {};
  return FoundCut{newest.Name(), LocalTime(newest.Written, "%Y-%m-%d %H:%M")};
}

std::optional<std::string> KeepUnreadCut(const Session& session, const std::filesystem::path& path) {
  if (path != BoundariesFilePath(session, kExit) && path != AutosavePath(session)) return {};
  const std::vector<CutFile> cuts = CutsIn(session);
  const fs::path file = path.filename();
  const auto found =
      std::find_if(cuts.begin(), cuts.end(), [&](const CutFile& cut) { return cut.Path.filename() == file; });
  if (found == cuts.end()) return {};
  for (const CutFile& cut : cuts)
    if (&cut != &*found && ((cut.IsUsers() && cut.Written > found->Written) || HoldTheSame(cut.Path, found->Path)))
      return {};
  return PathText(SetAside(path).stem());
}

std::vector<std::string> KeptCuts(const Session& session) {
  std::vector<std::string> names;
  for (const CutFile& cut : CutsIn(session))
    if (cut.IsKept()) names.push_back(cut.Name());
  return names;
}

}  // namespace pallomir
