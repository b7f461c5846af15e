#pragma once

#include <optional>

#include "pallomir/files/progress.h"
#include "pallomir/session/session.h"

namespace pallomir {

/// Deletes cluster c's boundaries, its defined mark and its memberships.
void DeleteCluster(Session& session, int c, const Progress& progress = {});

/// DeleteCluster for 1..30, with all membership lists cleared at once.
void DeleteAllClusters(Session& session);

/// The result of a copy. Only a copy that was made needs a redraw.
struct CopyOutcome {
  /// The target cluster; 0 if the number was invalid and nothing was changed.
  int Target = 0;
  /// The target had boundaries, which were deleted.
  bool Deleted = false;
  bool Copied = false;
};

/// The command `cmdCopyCluster`: the current cluster's boundaries replace those of cluster `number`, rounded. Does
/// nothing unless 0 < number <= 30, nor if it rounds to 0; when copied onto itself, or from an empty cluster, the
/// target ends up empty.
CopyOutcome CopyCluster(Session& session, std::optional<double> number, const Progress& progress = {});

/// `cmdDeleteCluster` and `cmdDeleteAllClusters`: take the undo snapshot, then delete.
void DeleteCurrentCluster(Session& session, const Progress& progress = {});
void DeleteEveryCluster(Session& session);

/// Deletes the current cluster's first boundary in the current projection and classifies the cluster.
void DeleteClusterBounds(Session& session, const Progress& progress = {});

}  // namespace pallomir
