#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "tools/sample/walk.h"

namespace pallomir {

enum class CellKind { PlaceCell, Grid, HeadDirection, Bursting, Interneuron, Border, Speed };

/// A neuron near the tetrode. The height of its spikes on a wire is `Strength` divided by its distance from the wire.
struct Cell {
  CellKind Kind;
  std::array<double, 3> Site;   ///< micrometres from the centre of the four wires: across, across, in depth
  double Strength;              ///< microvolts times micrometres
  double PeakRate;              ///< spikes per second; bursts per second for the bursting cell
  double FieldX, FieldY;        ///< cm: centre of the place field, or a vertex of the grid
  double FieldSize;             ///< cm: radius of the place field, spacing of the grid, or reach from the wall x = 0
  double PreferredHeading = 0;  ///< turns
};

/// The cells of the sample recording; cell number n of the spike file is entry n - 1, and 0 is the multi-unit noise.
/// Their sites are chosen so that each cell is separate from all others in some projection of two MPeak parameters, but
/// no projection separates all of them.
inline constexpr std::array<Cell, 8> kCells{{
    {CellKind::PlaceCell, {35.9, 11.8, 25.1}, 5540, 18, 30, 70, 22},
    {CellKind::PlaceCell, {-15.3, -5.9, 25.8}, 6130, 20, 72, 35, 20},
    {CellKind::Grid, {-6.3, 33.9, 16.9}, 5340, 16, 50, 50, 40},
    {CellKind::HeadDirection, {-19.0, 4.9, 16.8}, 5190, 22, 0, 0, 0, 1.0 / 3},
    {CellKind::Bursting, {-14.6, -36.6, 8.9}, 7250, 1.2, 0, 0, 0},
    {CellKind::Interneuron, {24.9, 10.5, 12.0}, 4640, 14, 0, 0, 0},
    {CellKind::Border, {12.4, 2.4, 21.0}, 5740, 14, 0, 0, 20},
    {CellKind::Speed, {-0.6, -0.7, 28.4}, 7970, 10, 0, 0, 0},
}};

inline constexpr uint64_t kRefractory = 2'500;  ///< microseconds; no cell fires twice within this time

struct CellSpike {
  uint64_t Time;  ///< microseconds from the start
  float Height;   ///< relative to the cell's usual spike; shrinks within a burst
  uint32_t Cell;  ///< 1-based
};

/// The spikes of all cells along a walk, in time order. Keeps a `share` of them, 0 to 1.
std::vector<CellSpike> FireCells(const std::vector<WalkStep>& walk, double share, const Draws& draws);

/// The height of `cell` on each wire, in microvolts, after the share `elapsed` (0 to 1) of the recording: the tissue
/// drifts by 2 micrometres during it.
std::array<float, 4> HeightsOnWires(const Cell& cell, double elapsed);

}  // namespace pallomir
