#pragma once

#include "pallomir/session/session.h"

namespace pallomir {

/// Fills both colour tables: entry 0 black on a white background or white on a black one (always white in the reference
/// table), entries 1..30 fixed, from one of two sets. Clusters displayed as cluster 0 get its colour.
void BuildColourTable(Session& session);

/// Sets the display flags of clusters 1..30 from the switches, independent of the order in which they were set: a
/// cluster is drawn unless its own display is off, or it is displayed as cluster 0 and cluster 0 is not drawn.
void ShowClusters(Session& session);

}  // namespace pallomir
