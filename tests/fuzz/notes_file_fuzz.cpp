#include <algorithm>
#include <string_view>

#include "fuzz/fuzz_target.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/notes/cluster_notes.h"
#include "support/refusal.h"
#include "support/temporary_folder.h"

namespace pallomir {

/// A notes file. If it is refused, the line is named and the notes are unchanged; if it is read, the notes can
/// be written and are the same when they are read back.
FUZZ_TARGET(FuzzNotesFile) {
  static const TemporaryFolder folder;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  folder.Put("ClNotes", text);
  Session session;
  session.DataDirectory = folder / ".";
  session.Notes[3] = {3, "Fair", "before"};
  const auto before = session.Notes;
  const std::string refusal = Refusal([&] { ReadNotes(session); });
  // Only notes that can be read and are not empty may replace the safeguard copy.
  const bool worthKeeping = refusal.empty() && session.Notes != ByCluster<ClusterNote>();
  REQUIRE(ReadText(folder / "ClNotes") == text);
  REQUIRE(!worthKeeping || ReadText(folder / "ClNotes.bak") == text);
  if (!refusal.empty()) {
    REQUIRE(refusal.starts_with("ClNotes, line "));
    REQUIRE(session.Notes == before);
    REQUIRE(!Refusal([&] { WriteNotes(session); }).empty() && ReadText(folder / "ClNotes") == text);
    return 0;
  }
  for (int c = 0; c <= kClusters; ++c) REQUIRE(session.Notes[c].Number >= 0 && session.Notes[c].Number <= kClusters);
  // A carriage return on its own, which the file format does not treat as a line break.
  const bool holdable = std::none_of(session.Notes.begin(), session.Notes.end(), [](const ClusterNote& note) {
    return note.Remarks.find('\r') != std::string::npos;
  });
  const auto read = session.Notes;
  REQUIRE(Refusal([&] { WriteNotes(session); }).empty() == holdable);
  if (!holdable) return 0;
  session.Notes = {};
  REQUIRE(Refusal([&] { ReadNotes(session); }).empty());
  REQUIRE(session.Notes == read);
  return 0;
}

}  // namespace pallomir
