#pragma once

#include "session/session.h"

namespace pallomir {

/// Fills both colour tables: entry 0 black on white or white on black (the reference table's always white), 1..30
/// fixed. Clusters displayed as cluster 0 take its colour.
void BuildColourTable(Session& session);

/// Displays cluster c as unclustered points are, or as itself again. While cluster 0 is not displayed, c is not either;
/// `disabled` tells whether c's own display is switched off.
void SetDisplayAsZero(Session& session, int c, bool asZero, bool disabled);

}  // namespace pallomir
