#pragma once

#include <string>
#include <string_view>

#include "pallomir/files/progress.h"
#include "pallomir/session/session.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// The boundaries file of a name as typed: in the data directory, with ".txt" behind it whatever it ends in.
std::string BoundariesFilePath(const Session& session, std::string_view name);

/// Writes the boundaries of every cluster that carries the defined mark, and says so in the log. An existing file is
/// safeguarded, then replaced, all or nothing. Throws CommandError when it cannot be written.
void WriteCBFile(const Session& session, World& world, std::string_view path);

/// Replaces all clusters by those of the file and classifies them. False when there is no such file or it lacks a
/// header: the clusters are deleted all the same. Records of one cluster that are not contiguous start it over. The
/// names of the parameters in a record replace the catalogue's.
///
/// Throws CommandError naming the line where a number is out of its bounds, is none, or the file ends inside a record:
/// the clusters read until then keep what was read, unclassified; the names are those of the whole records. However
/// it ends early, Undo leads back to the cut before.
bool ReadCBFile(Session& session, std::string_view path, const Progress& progress = {});

/// Replaces only the chosen clusters, and keeps all their records even where they are not contiguous; other records are
/// passed over, whatever their number. Otherwise as ReadCBFile.
bool ReadSelectedClusters(Session& session, std::string_view path, const ByCluster<bool>& selected,
                          const Progress& progress = {});

}  // namespace pallomir
