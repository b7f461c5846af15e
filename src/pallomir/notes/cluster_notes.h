#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>

#include "pallomir/session/session.h"

namespace pallomir {

/// The grades of clusters, best first.
inline constexpr std::array<std::string_view, 5> kRatings = {"Good", "Pretty Good", "Fair", "Marginal", "Poor"};

/// The path of the notes file in the data directory: 31 lines `number,"rating","remarks"`, line k (from 0) for cluster
/// k. Any text after them is not ours.
std::filesystem::path NotesFilePath(const Session& session);

/// Throws CommandError if the remarks of cluster c contain a double quote or a line break, which the file format does
/// not allow.
void CheckRemarks(int c, std::string_view remarks);

/// The notes in a file; empty notes if it does not exist. Throws CommandError naming the malformed line.
ByCluster<ClusterNote> NotesIn(const std::filesystem::path& path);

/// Reads all notes from the file; later lines are ignored. Returns false, with the notes unchanged, if there is no
/// file. The file is backed up first if its folder is writable.
///
/// Throws CommandError naming the malformed line; the notes are then unchanged.
bool ReadNotes(Session& session);

/// True if the notes are those last read or written.
bool NotesAreSaved(const Session& session);

/// Why the file must not be replaced without asking the user: it cannot be read, differs from what was last read or
/// written here, or is write-protected. Empty if it may be replaced.
std::string DoubtAboutNotesFile(const Session& session);

/// What to do if there is such a doubt.
enum class InDoubt { Refuse, SetAside };

/// Writes all notes, all or nothing; an existing file is backed up first, and text after its notes is kept. If there is
/// a doubt about the file, refuses or renames it. Throws CommandError if writing fails, and before changing anything if
/// remarks contain a double quote or a line break, which the file format does not allow.
void WriteNotes(Session& session, InDoubt inDoubt = InDoubt::Refuse);

}  // namespace pallomir
