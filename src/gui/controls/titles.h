#pragma once

#include <QStringList>

#include "pallomir/session/session.h"

// What windows, and the files that they offer to save, say of the recording.

namespace pallomir {

/// "TT1" where the parameter file is TT1.Ntt.parms; its whole name where that ends otherwise; empty without a file.
QString TetrodeOf(const Session& session);

/// A window's caption, then what it shows: "Projections — TT1", "Analysis Report Sheet — TT1, cluster 2" where `c` is
/// not 0. The caption alone where the tetrode is not known.
QString TitleWithTetrode(const QString& caption, const QString& tetrode, int c = 0);

/// A file name to offer, without its ending: "TT1 cluster 2 rate map" for "Cluster 2" and "Rate map".
QString FileNameWithTetrode(const QString& tetrode, const QStringList& what);

}  // namespace pallomir
