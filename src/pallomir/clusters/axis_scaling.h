#pragma once

#include <optional>

#include "pallomir/session/session.h"

namespace pallomir {

/// Scales the ranges of both displayed parameters about their centres, to three fifths or to seven fifths.
void ScaleUp(Session& session);
void ScaleDown(Session& session);

/// Resets both displayed parameters to their data ranges.
void ScaleDefaults(Session& session);

/// The ends of an axis as typed; an empty one leaves that end unchanged.
struct TypedRange {
  std::optional<double> Lower;
  std::optional<double> Upper;
};
void SetAxis(Session& session, int parameter, const TypedRange& range);

/// SetAxis for all 134 parameters.
void SetAllAxes(Session& session, const TypedRange& range);

}  // namespace pallomir
