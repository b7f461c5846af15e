#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "pallomir/session/session.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// Texts of the main form's boxes that the writer uses, as typed.
struct ClusterFileTexts {
  std::string ClustFile = "cl-maze1";  ///< the files' name without the cluster number
  std::string StartTime, EndTime;      ///< the time range, written at the start of each file
};

// All in the data directory.
std::filesystem::path ClusterFilePath(const Session& session, std::string_view name, int c);
/// The previous version of cluster c's file.
std::filesystem::path OldClusterFilePath(const Session& session, std::string_view name, int c);
std::filesystem::path UnclassifiedFilePath(const Session& session, std::string_view name);
/// The current cluster alone, and its stamps alone.
std::filesystem::path TemporaryClusterFilePath(const Session& session);
std::filesystem::path TemporaryTimeFilePath(const Session& session);

/// Every file that a run may replace or rename, except the temporary ones.
std::vector<std::filesystem::path> ClusterFilePaths(const Session& session, std::string_view name);

/// Writes a file for every defined cluster and one for the unclassified spikes, with each loaded spike in exactly one
/// of them: a spike in several clusters goes to one of these, and the overlap is reported. Earlier cluster files are
/// renamed as OLD. In temporary mode only the current cluster is written, to its two files, and nothing is reported.
///
/// All files are written beside their targets and flushed before the first is renamed, so that a full disk, a write
/// error or the user's stop (Interrupted) changes nothing. Throws CommandError that says which files were written and
/// which were not; before any of that, if a text is not a number or the name is empty.
void WriteClusterFiles(const Session& session, World& world, const ClusterFileTexts& texts);

/// The files in which analyses find the spikes of one cluster.
struct SpikesOfCluster {
  std::filesystem::path Spikes;  ///< a cluster file
  std::filesystem::path Times;   ///< the stamps alone
};

/// Writes these files for cluster c, with the spikes that `assigned` gives it (output/assignment). Throws CommandError
/// if a time is not a number or a file cannot be written, Interrupted when the user stops it.
void WriteSpikesOf(const Session& session, World& world, const ClusterFileTexts& texts,
                   const std::vector<uint8_t>& assigned, int c, const SpikesOfCluster& files);

}  // namespace pallomir
