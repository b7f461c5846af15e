#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "pallomir/files/progress.h"
#include "pallomir/session/session.h"

namespace pallomir {

/// The polygon that is being drawn, from its first click to the closing one.
struct OpenPolygon {
  int16_t Cluster = 0;
  int16_t Boundary = 0;
  /// The cluster before the first click. Other commands take an undo snapshot too while the polygon is open.
  pallomir::Cluster Before{};
  /// What Undo would have brought back before the polygon was begun.
  UndoSnapshot Earlier{};
};

/// What came of a click.
struct ClickOutcome {
  /// The click was not taken: why, for the status line. Empty when it was.
  std::string Refused;
  bool Closed = false;
};

/// The boundary of an open polygon.
const Boundary& BoundaryOf(const Session& session, const OpenPolygon& open);

/// A left click while boundaries are drawn: takes the undo snapshot and begins a polygon of the current cluster in
/// the present projection, in place of the boundary it has there; or adds a vertex to the one that is open.
ClickOutcome AddVertex(Session& session, std::optional<OpenPolygon>& open, Vertex click);

/// A right click: adds the last vertex, closes the polygon and classifies its cluster. Where the polygon has all the
/// vertices that a boundary can hold, it is closed without this one, and Refused says so. Nothing happens when no
/// polygon is open.
ClickOutcome ClosePolygon(Session& session, std::optional<OpenPolygon>& open, Vertex click,
                          const Progress& progress = {});

/// Takes an open polygon back: its cluster is that before the first click. Undo brings back what it would have then or,
/// where another command took its snapshot meanwhile, that snapshot without the polygon.
void TakeBackPolygon(Session& session, std::optional<OpenPolygon>& open, const Progress& progress = {});

/// Gives up a polygon whose cluster or projection is no longer the present one; it stays in the table as drawn so far.
void AbandonIfElsewhere(const Session& session, std::optional<OpenPolygon>& open);

}  // namespace pallomir
