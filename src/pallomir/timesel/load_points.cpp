#include "pallomir/timesel/load_points.h"

#include "pallomir/clusters/classify.h"
#include "pallomir/files/error.h"
#include "pallomir/session/point_reader.h"
#include "pallomir/session/work_pace.h"

namespace pallomir {

namespace {

/// The points have been replaced: if the user stops this, unload them rather than leave them partly classified.
void Classify(Session& session, World& world) {
  WorkPace pace(world);
  try {
    ClassifyAllClusters(session, pace);
  } catch (const Interrupted&) {
    session.Points.ClearMemberships();
    GiveUpRange(session);
    ClassifyAllClusters(session);  // one row is left
    throw;
  }
}

}  // namespace

void LoadPoints(Session& session, World& world, int32_t start, int32_t end) {
  if (start > end) throw CommandError(ErrorKind::OutOfRange, "Start time must be <= to Stop time");
  if (start == 0 && end == 0)
    throw CommandError(ErrorKind::OutOfRange, "Must Define Event IDs Using Define Epochs Command");
  ReadPoints(session, world, start, end);
  Classify(session, world);
}

void GiveUpRange(Session& session) {
  session.LoadStartRecord = session.LoadEndRecord = 0;
  session.Points.KeepFirst(1);
}

}  // namespace pallomir
