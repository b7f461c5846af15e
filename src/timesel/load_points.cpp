#include "timesel/load_points.h"

#include "clusters/classify.h"
#include "files/error.h"
#include "session/point_reader.h"

namespace pallomir {

void LoadPoints(Session& session, World& world, int32_t start, int32_t end) {
  if (start > end) throw CommandError("Start time must be <= to Stop time", "ERROR");
  if (start == 0 && end == 0) throw CommandError("Must Define Event IDs Using Define Epochs Command", "ERROR");
  ReadPoints(session, world, start, end);
  ClassifyAllClusters(session);
}

}  // namespace pallomir
