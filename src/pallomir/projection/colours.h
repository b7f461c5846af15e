#pragma once

#include "pallomir/session/session.h"

namespace pallomir {

/// Fills both colour tables: entry 0 black on white or white on black (the reference table's always white), 1..30
/// fixed. Clusters displayed as cluster 0 take its colour.
void BuildColourTable(Session& session);

/// Sets the display flags of clusters 1..30 by the switches, whichever came first: a cluster is drawn unless its own
/// display is switched off, or it is shown as unclustered points are and those are not drawn.
void ShowClusters(Session& session);

}  // namespace pallomir
