#pragma once

#include <optional>

#include "pallomir/session/session.h"

namespace pallomir {

/// Both parameters on view: their ranges shrink to three fifths about their centres, or grow to seven fifths.
void ScaleUp(Session& session);
void ScaleDown(Session& session);

/// Both parameters on view take their data ranges.
void ScaleDefaults(Session& session);

/// Ends of an axis as typed; an empty one leaves that end as it is.
struct TypedRange {
  std::optional<double> Lower;
  std::optional<double> Upper;
};
void SetAxis(Session& session, int parameter, const TypedRange& range);

/// SetAxis for all 134 parameters.
void SetAllAxes(Session& session, const TypedRange& range);

}  // namespace pallomir
