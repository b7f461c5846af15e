#pragma once

#include <string_view>
#include <vector>

#include "pallomir/session/session.h"
#include "support/temporary_folder.h"

namespace pallomir {

/// A session on a parameter file with these `bytes`: the folder has "VideoSampling" and "TT1/TT1.Ntt.parms", which
/// is opened; nothing is loaded yet.
Session SessionOn(const TemporaryFolder& folder, std::string_view bytes);

/// A session as after loading records 1..n, of which MPeak-1 (horizontal) and MPeak-2 have the given values and all
/// else is 0. Both axes range from 0 to 100.
Session SessionWith(const std::vector<Vertex>& points);

Boundary PolygonOf(const std::vector<Vertex>& vertices, int xParameter = 0, int yParameter = 1);
Boundary RectangleOf(float left, float low, float right, float high, int xParameter = 0, int yParameter = 1);

/// Adds a boundary to cluster c, without classifying it.
void AddBoundary(Session& session, int c, const Boundary& boundary);

/// The clusters that point i is in, in the order of its list; what follows the first 0 must be 0.
std::vector<int> ListOf(const Session& session, size_t i);

}  // namespace pallomir
