#include "clusters/undo.h"

#include "clusters/classify.h"
#include "clusters/editing.h"

namespace pallomir {

void SaveUndoSnapshot(Session& session) {
  session.Undo = {session.Clusters, session.DefinitionCounter};
}

void UndoLastChange(Session& session) {
  const UndoSnapshot present{session.Clusters, session.DefinitionCounter};
  DeleteAllClusters(session);
  session.Clusters = session.Undo.Clusters;
  session.DefinitionCounter = session.Undo.DefinitionCounter;
  session.Undo = present;
  for (int c = 1; c <= kClusters; ++c) {
    if (session.Clusters[c].BoundaryCount == 0) continue;
    ClassifyCluster(session, c);
    session.ClusterDefined[c] = true;
  }
}

}  // namespace pallomir
