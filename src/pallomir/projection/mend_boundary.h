#pragma once

#include <optional>
#include <string>

#include "pallomir/files/progress.h"
#include "pallomir/projection/view.h"
#include "pallomir/session/session.h"

namespace pallomir {

/// The part of a boundary that the pointer takes hold of.
struct Grip {
  enum class Part { Corner, Edge, Whole };
  Part Held = Part::Corner;
  /// The boundary's index in its cluster.
  int Boundary = 0;
  /// The corner, or the one at which the edge begins.
  int Corner = 0;
};

/// The nearest corner of the current cluster's boundaries in the current projection, otherwise the nearest edge, within
/// `reach` device pixels of `at`.
std::optional<Grip> GripAt(const Session& session, const View& view, Vertex at, double reach);

/// The whole of a boundary that encloses `at`, or has an edge within `reach` of it.
std::optional<Grip> WholeAt(const Session& session, const View& view, Vertex at, double reach);

/// The boundary after a drag of a grip from one position to another: the corner or all corners moved along, or a new
/// corner in the edge where the drag ends.
Boundary Dragged(const Boundary& boundary, const Grip& grip, Vertex from, Vertex to);

Boundary WithoutCorner(const Boundary& boundary, int corner);

/// Why the edge cannot get another corner, or the corner cannot be deleted; empty if it can.
std::string RefusedCorner(const Boundary& boundary);
std::string RefusedDeletion(const Boundary& boundary);

/// Replaces boundary `b` of cluster `c` by `mended` and classifies the cluster; Undo takes it back.
void MendBoundary(Session& session, int c, int b, const Boundary& mended, const Progress& progress = {});

}  // namespace pallomir
