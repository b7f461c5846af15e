#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "pallomir/session/session.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// What the writer takes from the main form's text boxes, as typed.
struct ClusterFileTexts {
  std::string ClustFile = "cl-maze1";  ///< the files' name without the cluster number
  std::string StartTime, EndTime;      ///< the time range, which the files begin with
};

// All in the data directory.
std::string ClusterFilePath(const Session& session, std::string_view name, int c);
/// The version of cluster c's file before the last one.
std::string OldClusterFilePath(const Session& session, std::string_view name, int c);
std::string UnclassifiedFilePath(const Session& session, std::string_view name);
/// The current cluster alone, and its stamps alone.
std::string TemporaryClusterFilePath(const Session& session);
std::string TemporaryTimeFilePath(const Session& session);

/// Every file that a run may replace or rename, apart from the temporary ones.
std::vector<std::string> ClusterFilePaths(const Session& session, std::string_view name);

/// Writes a file for every defined cluster and one for the unclassified spikes, each loaded spike into one of them: a
/// spike in several clusters goes into any of these, and the overlap is reported. Earlier cluster files become the OLD
/// ones. In the temporary mode only the current cluster is written, to its two files, and nothing is reported.
///
/// Everything is written beside and seen to the disk before the first file changes its name, so a full disk, a fault
/// or the user's stop (Interrupted) leaves all as it was. Throws CommandError that says which files were written and
/// which were not; before any of that, when a text is not a number or the name is empty.
void WriteClusterFiles(const Session& session, World& world, const ClusterFileTexts& texts);

}  // namespace pallomir
