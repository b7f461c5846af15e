#pragma once

#include <optional>

#include "session/session.h"
#include "session/work_pace.h"

namespace pallomir {

/// Takes cluster c's boundaries, its defined mark and its points away.
void DeleteCluster(Session& session, int c, WorkPace* pace = nullptr);

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
CopyOutcome CopyCluster(Session& session, std::optional<double> number, WorkPace* pace = nullptr);

/// `cmdDeleteCluster` and `cmdDeleteAllClusters`: the undo snapshot, then the deletion.
void DeleteCurrentCluster(Session& session, WorkPace* pace = nullptr);
void DeleteEveryCluster(Session& session);

/// Takes the current cluster's first boundary on the present projection away and classifies the cluster.
void DeleteClusterBounds(Session& session, WorkPace* pace = nullptr);

}  // namespace pallomir
