#pragma once

#include "pallomir/files/progress.h"
#include "pallomir/session/session.h"

namespace pallomir {

/// Copies the boundaries and the definition counter into the undo snapshot. Called at the start of every change that
/// can be undone.
void SaveUndoSnapshot(Session& session);

/// Swaps the current boundaries and counter with the snapshot; marks and classifies the clusters that then have
/// boundaries. A second call restores the first state.
void UndoLastChange(Session& session, const Progress& progress = {});

}  // namespace pallomir
