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

/// The points of cluster c that have no place on some projection in which it was cut: a value there is not finite. Such
/// a value never rejects a point, so they are members wherever their other values lie.
int64_t PointsNotFinite(const Session& session, int c);

}  // namespace pallomir
