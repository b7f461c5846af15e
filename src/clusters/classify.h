#pragma once

#include <cstdint>

#include "session/session.h"

namespace pallomir {

/// Re-evaluates every loaded point's membership in cluster c (0..30, else CommandError). A point that comes in joins
/// the end of its list; one that stays keeps its place; one that leaves is taken out. A cluster without boundaries
/// holds no point.
void ClassifyCluster(Session& session, int c);

/// ClassifyCluster for c = 1..30 in increasing order.
void ClassifyAllClusters(Session& session);

/// Takes cluster c's boundaries away and c out of every membership list. A cluster without boundaries is left alone.
void ClearCluster(Session& session, int c);

/// Loaded points in cluster c; for c = 0 the points in no cluster.
int64_t PointsInCluster(const Session& session, int c);

}  // namespace pallomir
