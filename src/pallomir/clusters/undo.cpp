#include "pallomir/clusters/undo.h"

#include "pallomir/clusters/classify.h"
#include "pallomir/clusters/editing.h"

namespace pallomir {

void SaveUndoSnapshot(Session& session) {
  session.Undo = {session.Clusters, session.DefinitionCounter};
}

void UndoLastChange(Session& session, const Progress& progress) {
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
  ClassifyClusters(session, drawn, progress);
}

}  // namespace pallomir
