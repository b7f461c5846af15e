#include "pallomir/projection/mend_boundary.h"

#include <algorithm>
#include <cmath>

#include "pallomir/clusters/classify.h"
#include "pallomir/clusters/undo.h"
#include "pallomir/projection/stroke.h"

namespace pallomir {

namespace {

/// The distance of (x, y) from a line, between its ends.
double Distance(const Segment& line, double x, double y) {
  const double dx = line.X1 - line.X0, dy = line.Y1 - line.Y0, length = dx * dx + dy * dy;
  const double along = length > 0 ? std::clamp(((x - line.X0) * dx + (y - line.Y0) * dy) / length, 0.0, 1.0) : 0;
  return std::hypot(x - line.X0 - along * dx, y - line.Y0 - along * dy);
}

const Vertex& Next(const Boundary& boundary, int corner) {
  return boundary.Vertices[(corner + 1) % boundary.VertexCount];
}

/// Calls `visit` for every corner of the current cluster in the current projection.
template <class Visit>
void ForEachCorner(const Session& session, Visit visit) {
  const Cluster& cluster = session.Clusters[session.CurrentCluster];
  for (int b = 0; b < cluster.BoundaryCount; ++b) {
    if (!OnView(session, cluster.Boundaries[b])) continue;
    for (int k = 0; k < cluster.Boundaries[b].VertexCount; ++k) visit(cluster.Boundaries[b], b, k);
  }
}

/// Keeps the nearest of the grips offered within reach.
struct Nearest {
  double Reach;
  std::optional<Grip> Found{};

  void Offer(Grip::Part part, int b, int corner, double distance) {
    if (!(distance <= Reach)) return;
    Reach = distance;
    Found = Grip{part, b, corner};
  }
};

std::optional<Grip> EdgeAt(const Session& session, const View& view, Vertex at, double reach) {
  const Segment there = SegmentOf(view, at, at);
  Nearest edge{reach};
  ForEachCorner(session, [&](const Boundary& boundary, int b, int k) {
    const Segment line = SegmentOf(view, boundary.Vertices[k], Next(boundary, k));
    edge.Offer(Grip::Part::Edge, b, k, Distance(line, there.X0, there.Y0));
  });
  return edge.Found;
}

/// Counts the edges that a ray to the right crosses.
bool Encloses(const Boundary& boundary, Vertex at) {
  bool within = false;
  for (int k = 0; k < boundary.VertexCount; ++k) {
    const Vertex &from = boundary.Vertices[k], &to = Next(boundary, k);
    if ((from.Y > at.Y) == (to.Y > at.Y)) continue;
    const double slope = (double{to.X} - from.X) / (double{to.Y} - from.Y);
    if (at.X < from.X + slope * (double{at.Y} - from.Y)) within = !within;
  }
  return within;
}

Vertex Moved(Vertex corner, Vertex from, Vertex to) {
  return {static_cast<float>(corner.X + (double{to.X} - from.X)),
          static_cast<float>(corner.Y + (double{to.Y} - from.Y))};
}

}  // namespace

std::optional<Grip> GripAt(const Session& session, const View& view, Vertex at, double reach) {
  const Segment there = SegmentOf(view, at, at);
  Nearest corner{reach};
  ForEachCorner(session, [&](const Boundary& boundary, int b, int k) {
    const Segment point = SegmentOf(view, boundary.Vertices[k], boundary.Vertices[k]);
    corner.Offer(Grip::Part::Corner, b, k, Distance(point, there.X0, there.Y0));
  });
  return corner.Found ? corner.Found : EdgeAt(session, view, at, reach);
}

std::optional<Grip> WholeAt(const Session& session, const View& view, Vertex at, double reach) {
  if (auto edge = EdgeAt(session, view, at, reach)) return Grip{Grip::Part::Whole, edge->Boundary};
  const Cluster& cluster = session.Clusters[session.CurrentCluster];
  for (int b = 0; b < cluster.BoundaryCount; ++b)
    if (OnView(session, cluster.Boundaries[b]) && Encloses(cluster.Boundaries[b], at))
      return Grip{Grip::Part::Whole, b};
  return {};
}

Boundary Dragged(const Boundary& boundary, const Grip& grip, Vertex from, Vertex to) {
  Boundary dragged = boundary;
  const auto begin = dragged.Vertices.begin(), end = begin + boundary.VertexCount;
  switch (grip.Held) {
    case Grip::Part::Corner:
      begin[grip.Corner] = Moved(begin[grip.Corner], from, to);
      break;
    case Grip::Part::Edge:
      std::move_backward(begin + grip.Corner + 1, end, end + 1);
      begin[grip.Corner + 1] = to;
      ++dragged.VertexCount;
      break;
    case Grip::Part::Whole:
      std::transform(begin, end, begin, [&](Vertex corner) { return Moved(corner, from, to); });
  }
  return dragged;
}

Boundary WithoutCorner(const Boundary& boundary, int corner) {
  Boundary without = boundary;
  const auto begin = without.Vertices.begin();
  std::move(begin + corner + 1, begin + boundary.VertexCount, begin + corner);
  begin[--without.VertexCount] = {};
  return without;
}

std::string RefusedCorner(const Boundary& boundary) {
  return boundary.VertexCount < kVerticesPerBoundary ? "" : "This boundary has 51 corners, the most it can have.";
}

std::string RefusedDeletion(const Boundary& boundary) {
  return boundary.VertexCount > 3 ? "" : "A boundary keeps at least 3 corners.";
}

void MendBoundary(Session& session, int c, int b, const Boundary& mended, const Progress& progress) {
  SaveUndoSnapshot(session);
  session.Clusters[c].Boundaries[b] = mended;
  ClassifyCluster(session, c, progress);
}

}  // namespace pallomir
