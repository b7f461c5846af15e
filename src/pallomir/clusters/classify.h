#pragma once

#include <cstdint>

#include "pallomir/files/progress.h"
#include "pallomir/session/session.h"

namespace pallomir {

/// Re-evaluates every loaded point's membership in cluster c (0..30, else CommandError). A point that comes in joins
/// the end of its list; one that stays keeps its place; one that leaves is taken out. A cluster without boundaries
/// holds no point. `progress` may stop it; the lists are then half of the one and half of the other cut.
void ClassifyCluster(Session& session, int c, const Progress& progress = {});

/// ClassifyCluster for those of 1..30 that are wanted, in increasing order.
void ClassifyClusters(Session& session, const ByCluster<bool>& wanted, const Progress& progress = {});
void ClassifyAllClusters(Session& session, const Progress& progress = {});

/// Takes cluster c's boundaries away and c out of every membership list. A cluster without boundaries is left alone.
void ClearCluster(Session& session, int c, const Progress& progress = {});

/// Loaded points in cluster c; for c = 0 the points in no cluster.
int64_t PointsInCluster(const Session& session, int c);

/// The points of cluster c that have no place on some projection in which it was cut: a value there is not finite. Such
/// a value never rejects a point, so they are members wherever their other values lie.
int64_t PointsNotFinite(const Session& session, int c);

}  // namespace pallomir
