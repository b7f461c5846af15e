#pragma once

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "pallomir/projection/view.h"
#include "pallomir/session/session.h"

namespace pallomir {

/// The displayed point nearest to a pixel of a view of two parameters, at most `reach` pixels away; empty if there is
/// none. `ranges` restricts the points as in DrawSettings.
std::optional<size_t> NearestPoint(const Session& session, ParameterPair pair, const View& view, double pixelX,
                                   double pixelY, double reach,
                                   const std::optional<std::vector<std::pair<float, float>>>& ranges);

}  // namespace pallomir
