#include "support/sessions.h"

#include <stdexcept>

#include "pallomir/projection/colours.h"
#include "pallomir/session/start_up.h"

namespace pallomir {

Session SessionOn(const TemporaryFolder& folder, std::string_view bytes) {
  Session session;
  InitialiseSession(session);
  BuildColourTable(session);
  folder.Put("VideoSampling", "30\r\n");
  OpenParameterFile(session, folder.Put("TT1/TT1.Ntt.parms", bytes));
  session.DataDirectory = folder / "TT1";
  return session;
}

Session SessionWith(const std::vector<Vertex>& points) {
  Session session;
  InitialiseSession(session);
  BuildColourTable(session);
  session.Points = PointTable(points.size());
  for (size_t i = 0; i < points.size(); ++i) {
    session.Points.Column(0)[i] = points[i].X;
    session.Points.Column(1)[i] = points[i].Y;
  }
  session.LoadStartRecord = 1;
  session.LoadEndRecord = static_cast<int32_t>(points.size());
  return session;
}

Boundary PolygonOf(const std::vector<Vertex>& vertices, int xParameter, int yParameter) {
  Boundary boundary{static_cast<int16_t>(xParameter), static_cast<int16_t>(yParameter), 0, {}};
  for (const Vertex& vertex : vertices) boundary.Vertices.at(boundary.VertexCount++) = vertex;
  return boundary;
}

Boundary RectangleOf(float left, float low, float right, float high, int xParameter, int yParameter) {
  return PolygonOf({{left, low}, {right, low}, {right, high}, {left, high}}, xParameter, yParameter);
}

void AddBoundary(Session& session, int c, const Boundary& boundary) {
  Cluster& cluster = session.Clusters[c];
  cluster.Boundaries.at(cluster.BoundaryCount++) = boundary;
}

std::vector<int> ListOf(const Session& session, size_t i) {
  const PointRecord record = session.Points.Record(i);
  std::vector<int> list(record.Clusters.begin(), record.Clusters.end());
  while (!list.empty() && list.back() == 0) list.pop_back();
  for (const int c : list)
    if (c == 0) throw std::logic_error("a membership list has a gap");
  return list;
}

}  // namespace pallomir
