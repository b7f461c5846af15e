#include "pallomir/projection/polygon.h"

#include "pallomir/clusters/classify.h"
#include "pallomir/clusters/undo.h"

namespace pallomir {

namespace {

/// The cluster's first boundary in the current projection, otherwise the next free one.
int BoundaryToDraw(const Session& session, const Cluster& cluster) {
  int b = 0;
  while (b < cluster.BoundaryCount && !OnView(session, cluster.Boundaries[b])) ++b;
  return b;
}

ClickOutcome BeginPolygon(Session& session, std::optional<OpenPolygon>& open, Vertex click) {
  const int16_t c = session.CurrentCluster;
  if (c == 0) return {"Choose a cluster first: the clicks draw its boundary."};
  const int b = BoundaryToDraw(session, session.Clusters[c]);
  if (b == kBoundariesPerCluster)
    return {"Cluster " + std::to_string(c) + " already has 21 boundaries, the most that a cluster can have."};
  Cluster& cluster = session.Clusters[c];
  open = OpenPolygon{c, static_cast<int16_t>(b), cluster, session.Undo};
  SaveUndoSnapshot(session);
  if (b == cluster.BoundaryCount && ++cluster.BoundaryCount == 1) {
    ++session.DefinitionCounter;
    session.ClusterDefined[c] = true;
  }
  cluster.Boundaries[b] = {session.XParameter, session.YParameter, 1, {click}};
  return {};
}

/// False if the boundary is full.
bool Append(Boundary& boundary, Vertex vertex) {
  if (boundary.VertexCount == kVerticesPerBoundary) return false;
  boundary.Vertices[boundary.VertexCount++] = vertex;
  return true;
}

}  // namespace

const Boundary& BoundaryOf(const Session& session, const OpenPolygon& open) {
  return session.Clusters[open.Cluster].Boundaries[open.Boundary];
}

ClickOutcome AddVertex(Session& session, std::optional<OpenPolygon>& open, Vertex click) {
  AbandonIfElsewhere(session, open);
  if (!open) return BeginPolygon(session, open, click);
  if (!Append(session.Clusters[open->Cluster].Boundaries[open->Boundary], click))
    return {"This boundary has 51 corners, the most it can have: right-click to close it."};
  return {};
}

ClickOutcome ClosePolygon(Session& session, std::optional<OpenPolygon>& open, Vertex click, const Progress& progress) {
  AbandonIfElsewhere(session, open);
  if (!open) return {};
  ClickOutcome outcome{{}, true};
  if (!Append(session.Clusters[open->Cluster].Boundaries[open->Boundary], click))
    outcome.Refused = "A boundary can have at most 51 corners: it was closed at the last one.";
  ClassifyCluster(session, open->Cluster, progress);
  open.reset();
  return outcome;
}

bool TakeBackVertex(Session& session, const std::optional<OpenPolygon>& open) {
  if (!open) return false;
  Boundary& boundary = session.Clusters[open->Cluster].Boundaries[open->Boundary];
  if (boundary.VertexCount < 2) return false;
  boundary.Vertices[--boundary.VertexCount] = {};
  return true;
}

void TakeBackPolygon(Session& session, std::optional<OpenPolygon>& open, const Progress& progress) {
  if (!open) return;
  const int c = open->Cluster;
  const bool first = open->Before.BoundaryCount == 0;
  if (session.Undo.Clusters[c] == open->Before) {
    session.Undo = open->Earlier;
  } else {
    session.Undo.Clusters[c] = open->Before;
    if (first) --session.Undo.DefinitionCounter;
  }
  session.Clusters[c] = open->Before;
  session.ClusterDefined[c] = !first;
  if (first) --session.DefinitionCounter;
  ClassifyCluster(session, c, progress);
  open.reset();
}

void AbandonIfElsewhere(const Session& session, std::optional<OpenPolygon>& open) {
  if (!open) return;
  const Cluster& cluster = session.Clusters[open->Cluster];
  const bool stillThere = open->Boundary < cluster.BoundaryCount &&
                          OnView(session, cluster.Boundaries[open->Boundary]) &&
                          cluster.Boundaries[open->Boundary].VertexCount > 0;
  if (!stillThere || open->Cluster != session.CurrentCluster) open.reset();
}

}  // namespace pallomir
