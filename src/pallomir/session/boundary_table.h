#pragma once

#include <array>
#include <cstdint>

#include "pallomir/science/xy.h"
#include "pallomir/session/point_table.h"

namespace pallomir {

inline constexpr int kClusters = 30;
inline constexpr int kBoundariesPerCluster = 21;
inline constexpr int kVerticesPerBoundary = 51;

using Vertex = XY<float>;

/// A polygon in the units of two parameters, with its vertices in drawing order; the last is joined to the first.
struct Boundary {
  int16_t XParameter = 0;
  int16_t YParameter = 0;
  int16_t VertexCount = 0;
  std::array<Vertex, kVerticesPerBoundary> Vertices{};
  bool operator==(const Boundary&) const = default;
};

/// A spike is in a cluster if it is inside every boundary 0..BoundaryCount-1.
struct Cluster {
  int16_t BoundaryCount = 0;
  std::array<Boundary, kBoundariesPerCluster> Boundaries{};
  bool operator==(const Cluster&) const = default;
};

/// By cluster number; entry 0 is never classified.
using BoundaryTable = std::array<Cluster, kClusterSlots>;

/// What Undo swaps with the current state.
struct UndoSnapshot {
  BoundaryTable Clusters{};
  int16_t DefinitionCounter = 0;
};

}  // namespace pallomir
