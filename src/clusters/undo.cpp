#include "clusters/undo.h"

namespace pallomir {

void SaveUndoSnapshot(Session& session) {
  session.Undo = {session.Clusters, session.DefinitionCounter};
}

}  // namespace pallomir
