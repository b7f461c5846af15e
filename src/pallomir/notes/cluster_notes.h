#pragma once

#include <array>
#include <string>
#include <string_view>

#include "pallomir/session/session.h"

namespace pallomir {

/// The scale that clusters are graded on, best first.
inline constexpr std::array<std::string_view, 5> kRatings = {"Good", "Pretty Good", "Fair", "Marginal", "Poor"};

/// The file of notes in the data directory: 31 lines `number,"rating","remarks"`, line k (from 0) for cluster k. What
/// follows them belongs to somebody else.
std::string NotesFilePath(const Session& session);

/// Throws CommandError when remarks of cluster c hold a double quote or a line break, which the file cannot hold.
void CheckRemarks(int c, std::string_view remarks);

/// The notes in a file; none where there is no such file. Throws CommandError naming the line where it is malformed.
ByCluster<ClusterNote> NotesIn(std::string_view path);

/// Takes all notes from the file; lines beyond them count for nothing. False when there is no file; the notes are then
/// left as they are. The file is safeguarded first where its folder can be written to.
///
/// Throws CommandError naming the line where the file is malformed; the notes are then left as they were.
bool ReadNotes(Session& session);

/// True when the notes are those that were last read or written.
bool NotesAreSaved(const Session& session);

/// Why the file must not be replaced without the user's word: it cannot be read, is not the one that was read or
/// written here, or is write-protected. Empty when it may be replaced.
std::string DoubtAboutNotesFile(const Session& session);

/// What to do with a file in doubt.
enum class InDoubt { Refuse, SetAside };

/// Writes all notes, all or nothing; an existing file is safeguarded first, and what follows the notes in it stays. One
/// in doubt is refused, or is kept under a further name. Throws CommandError when the writing fails, and before
/// anything is touched when some remarks hold a double quote or a line break, which the file cannot hold.
void WriteNotes(Session& session, InDoubt inDoubt = InDoubt::Refuse);

}  // namespace pallomir
