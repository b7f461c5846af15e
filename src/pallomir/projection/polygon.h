#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "pallomir/files/progress.h"
#include "pallomir/session/session.h"

namespace pallomir {

/// The polygon being drawn, from its first click until it is closed.
struct OpenPolygon {
  int16_t Cluster = 0;
  int16_t Boundary = 0;
  /// The cluster before the first click. Other commands may take undo snapshots while the polygon is open.
  pallomir::Cluster Before{};
  /// The undo snapshot before the polygon was begun.
  UndoSnapshot Earlier{};
};

/// The result of a click.
struct ClickOutcome {
  /// Why the click was refused, for the status line; empty if it was accepted.
  std::string Refused;
  bool Closed = false;
};

/// The boundary of an open polygon.
const Boundary& BoundaryOf(const Session& session, const OpenPolygon& open);

/// A left click while drawing boundaries. Without an open polygon, takes the undo snapshot and begins a polygon of the
/// current cluster in the current projection, replacing its boundary there; otherwise adds a vertex.
ClickOutcome AddVertex(Session& session, std::optional<OpenPolygon>& open, Vertex click);

/// A right click: adds the last vertex, closes the polygon and classifies its cluster. If the boundary already has the
/// maximum number of vertices, it is closed without this one, and Refused says so. Does nothing without an open
/// polygon.
ClickOutcome ClosePolygon(Session& session, std::optional<OpenPolygon>& open, Vertex click,
                          const Progress& progress = {});

/// Takes back the last corner of an open polygon. Returns false, without a change, if it is the only one.
bool TakeBackVertex(Session& session, const std::optional<OpenPolygon>& open);

/// Removes an open polygon and restores its cluster. Undo then restores what it would have before the polygon or, if
/// another command took a snapshot meanwhile, that snapshot without the polygon.
void TakeBackPolygon(Session& session, std::optional<OpenPolygon>& open, const Progress& progress = {});

/// Stops drawing a polygon whose cluster or projection is no longer current; the part drawn so far stays in the table.
void AbandonIfElsewhere(const Session& session, std::optional<OpenPolygon>& open);

}  // namespace pallomir
