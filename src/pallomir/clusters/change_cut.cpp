#include "pallomir/clusters/change_cut.h"

#include "pallomir/files/error.h"

namespace pallomir {

void ChangeCut(Session& session, const std::function<void()>& change) {
  const UndoSnapshot present{session.Clusters, session.DefinitionCounter}, undo = session.Undo;
  const auto defined = session.ClusterDefined;
  const auto names = session.ParameterNames;
  const MembershipLists lists = session.Points.Lists();
  try {
    change();
  } catch (const Interrupted&) {
    session.Clusters = present.Clusters;
    session.DefinitionCounter = present.DefinitionCounter;
    session.Undo = undo;
    session.ClusterDefined = defined;
    session.ParameterNames = names;
    session.Points.SetLists(lists);
    throw;
  }
}

}  // namespace pallomir
