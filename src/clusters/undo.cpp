#include "clusters/undo.h"

#include "clusters/classify.h"
#include "clusters/editing.h"

namespace pallomir {

void SaveUndoSnapshot(Session& session) {
  session.Undo = {session.Clusters, session.DefinitionCounter};
}

void UndoLastChange(Session& session, WorkPace* pace) {
  const UndoSnapshot present{session.Clusters, session.DefinitionCounter};
  DeleteAllClusters(session);
  session.Clusters = session.Undo.Clusters;
  session.DefinitionCounter = session.Undo.DefinitionCounter;
  session.Undo = present;
  ByCluster<bool> drawn{};
  for (int c = 1; c <= kClusters; ++c) {
    drawn[c] = session.Clusters[c].BoundaryCount > 0;
    if (drawn[c]) session.ClusterDefined[c] = true;
  }
  ClassifyClusters(session, drawn, pace);
}

}  // namespace pallomir
