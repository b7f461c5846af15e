#pragma once

#include <optional>

#include "pallomir/projection/view.h"
#include "pallomir/session/session.h"

namespace pallomir {

/// The nearest parameter in a direction (1 or -1) that is not 0 in all loaded spikes; `parameter` itself if there is
/// none.
int NextUseful(const Session& session, int parameter, int direction);

/// The useful pair after the displayed one (direction 1) or before it (-1). These are the pairs of wires in use within
/// MPeak, then PreVal, Energy and Valley, neither of them 0 in all loaded spikes or the record's number; the last is
/// followed by the first. From any other projection it leads to the first pair of its family or else of MPeak, or of
/// the next that has one. Empty if no family has two wires in use.
std::optional<ParameterPair> NextPair(const Session& session, int direction);

}  // namespace pallomir
