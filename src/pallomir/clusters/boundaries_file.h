#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "pallomir/files/progress.h"
#include "pallomir/session/session.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// The path of a boundaries file by its name as typed: in the data directory, always with ".txt" appended.
std::filesystem::path BoundariesFilePath(const Session& session, std::string_view name);

/// Writes the boundaries of every cluster marked as defined, and logs it. An existing file is backed up, then replaced,
/// all or nothing. Throws CommandError if it cannot be written.
void WriteCBFile(const Session& session, World& world, const std::filesystem::path& path);

/// Replaces all clusters by those of the file and classifies them. Returns false if the file does not exist or has no
/// header: the clusters are deleted in any case. If the records of a cluster are not contiguous, each run replaces the
/// previous one. Parameter names in a record replace those of the catalogue.
///
/// Throws CommandError naming the line if a number is out of range or not a number, or if the file ends within a
/// record: the data read so far is kept, unclassified, with the names of the complete records only. Whenever reading
/// fails, Undo restores the earlier cut.
bool ReadCBFile(Session& session, const std::filesystem::path& path, const Progress& progress = {});

/// Replaces only the selected clusters, and keeps all their records even if they are not contiguous; other records are
/// skipped, whatever their cluster number. Otherwise as ReadCBFile.
bool ReadSelectedClusters(Session& session, const std::filesystem::path& path, const ByCluster<bool>& selected,
                          const Progress& progress = {});

}  // namespace pallomir
