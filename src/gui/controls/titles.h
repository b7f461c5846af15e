#pragma once

#include <QStringList>

#include "pallomir/session/session.h"

// Window titles, and names of files to save, that identify the recording.

namespace pallomir {

/// "TT1" for the parameter file TT1.Ntt.parms; the whole name for any other ending; empty without a file.
QString TetrodeOf(const Session& session);

/// A window's caption and content: "Projections — TT1", "Analysis Report Sheet — TT1, cluster 2" if `c` is not 0. The
/// caption alone if the tetrode is unknown.
QString TitleWithTetrode(const QString& caption, const QString& tetrode, int c = 0);

/// A default file name without its extension: "TT1 cluster 2 rate map" for "Cluster 2" and "Rate map".
QString FileNameWithTetrode(const QString& tetrode, const QStringList& what);

}  // namespace pallomir
