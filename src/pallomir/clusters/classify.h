#pragma once

#include <cstdint>

#include "pallomir/files/progress.h"
#include "pallomir/session/session.h"

namespace pallomir {

/// Re-evaluates the membership of every loaded point in cluster c (0..30, otherwise CommandError). A point that joins
/// is appended to its list; one that stays keeps its position; one that leaves is removed. A cluster without boundaries
/// has no points. `progress` may stop it; the lists are then partly those of the old cut and partly those of the new.
void ClassifyCluster(Session& session, int c, const Progress& progress = {});

/// ClassifyCluster for the wanted clusters among 1..30, in increasing order.
void ClassifyClusters(Session& session, const ByCluster<bool>& wanted, const Progress& progress = {});
void ClassifyAllClusters(Session& session, const Progress& progress = {});

/// Deletes cluster c's boundaries and removes c from every membership list. Does nothing for a cluster without
/// boundaries.
void ClearCluster(Session& session, int c, const Progress& progress = {});

/// Number of loaded points in cluster c; for c = 0 that of points in no cluster.
int64_t PointsInCluster(const Session& session, int c);

/// Number of points in cluster c that cannot be drawn on some projection in which it was cut, because a value is not
/// finite. Such a value never rejects a point, so these points are members wherever their other values are.
int64_t PointsNotFinite(const Session& session, int c);

}  // namespace pallomir
