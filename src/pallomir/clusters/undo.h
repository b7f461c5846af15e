#pragma once

#include "pallomir/files/progress.h"
#include "pallomir/session/session.h"

namespace pallomir {

/// Copies the boundaries of clusters 1..30 and the definition counter into the undo snapshot. Called at the start of
/// every change that can be undone.
void SaveUndoSnapshot(Session& session);

/// Exchanges the present boundaries and counter with the snapshot, marks and classifies the clusters that then have
/// boundaries. Done twice it leads back.
void UndoLastChange(Session& session, const Progress& progress = {});

}  // namespace pallomir
