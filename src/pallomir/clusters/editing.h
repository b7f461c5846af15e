#pragma once

#include <optional>

#include "pallomir/files/progress.h"
#include "pallomir/session/session.h"

namespace pallomir {

/// Takes cluster c's boundaries, its defined mark and its points away.
void DeleteCluster(Session& session, int c, const Progress& progress = {});

/// DeleteCluster for 1..30, and every membership list emptied at once.
void DeleteAllClusters(Session& session);

/// What became of a copy. Only one that was made asks for a redraw.
struct CopyOutcome {
  /// The cluster that was copied to; 0 when the number named none, and nothing was touched.
  int Target = 0;
  /// The target had boundaries, which are gone.
  bool Deleted = false;
  bool Copied = false;
};

/// What `cmdCopyCluster` does: the current cluster's boundaries replace those of cluster `number`, rounded. Nothing
/// happens unless 0 < number <= 30 (nor where it rounds to 0); copied onto itself, or from an empty cluster, the target
/// ends up empty.
CopyOutcome CopyCluster(Session& session, std::optional<double> number, const Progress& progress = {});

/// `cmdDeleteCluster` and `cmdDeleteAllClusters`: the undo snapshot, then the deletion.
void DeleteCurrentCluster(Session& session, const Progress& progress = {});
void DeleteEveryCluster(Session& session);

/// Takes the current cluster's first boundary on the present projection away and classifies the cluster.
void DeleteClusterBounds(Session& session, const Progress& progress = {});

}  // namespace pallomir
