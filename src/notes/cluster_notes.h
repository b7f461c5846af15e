#pragma once

#include <array>
#include <string>
#include <string_view>

#include "session/session.h"

namespace pallomir {

/// The scale that clusters are graded on, best first.
inline constexpr std::array<std::string_view, 5> kRatings = {"Good", "Pretty Good", "Fair", "Marginal", "Poor"};

/// The file of notes in the data directory: 31 lines `number,"rating","remarks"`, line k (from 0) for cluster k.
std::string NotesFilePath(const Session& session);

/// Throws CommandError when remarks of cluster c hold a double quote or a line break, which the file cannot hold.
void CheckRemarks(int c, std::string_view remarks);

/// The notes in a file; none where there is no such file. Throws CommandError naming the line where it is malformed.
ByCluster<ClusterNote> NotesIn(std::string_view path);

/// Takes all notes from the file. False when there is none; the notes are then left as they are. The file is
/// safeguarded first where its folder can be written to.
///
/// Throws CommandError naming the line where the file is malformed; the notes are then left as they were.
bool ReadNotes(Session& session);

/// Writes all notes, all or nothing; an existing file is safeguarded first. Throws CommandError when that fails, and
/// before anything is touched when some remarks hold a double quote or a line break, which the file cannot hold.
void WriteNotes(const Session& session);

}  // namespace pallomir
