#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "tools/sample/walk.h"

namespace pallomir {

enum class CellKind { Place, Grid, HeadDirection, Bursting, Interneuron };

/// A neuron near the tetrode. Its spikes are as high on a wire as `Strength` divided by its distance from the wire.
struct Cell {
  CellKind Kind;
  std::array<double, 3> Site;   ///< micrometres from the middle of the four wires: across, across, in depth
  double Strength;              ///< microvolts times micrometres
  double PeakRate;              ///< spikes a second; bursts a second for the bursting cell
  double FieldX, FieldY;        ///< cm: middle of the place field, or a vertex of the grid
  double FieldSize;             ///< cm: radius of the place field, or spacing of the grid
  double PreferredHeading = 0;  ///< turns
};

/// The cells of the sample recording; cell number n of the spike file is entry n - 1, and 0 is the multi-unit noise.
/// Their sites are such that every cell stands clear of all others in a projection of two MPeak parameters, and no
/// projection shows all of them apart.
inline constexpr std::array<Cell, 6> kCells{{
    {CellKind::Place, {35.9, 11.8, 25.1}, 5540, 18, 30, 70, 22},
    {CellKind::Place, {-15.3, -5.9, 25.8}, 6130, 20, 72, 35, 20},
    {CellKind::Grid, {-6.3, 33.9, 16.9}, 5340, 16, 50, 50, 40},
    {CellKind::HeadDirection, {-19.0, 4.9, 16.8}, 5190, 22, 0, 0, 0, 1.0 / 3},
    {CellKind::Bursting, {-14.6, -36.6, 8.9}, 7250, 1.2, 0, 0, 0},
    {CellKind::Interneuron, {24.9, 10.5, 12.0}, 4640, 14, 0, 0, 0},
}};

inline constexpr uint64_t kRefractory = 2'500;  ///< microseconds; no cell fires twice within

struct CellSpike {
  uint64_t Time;  ///< microseconds from the start
  float Height;   ///< of the cell's usual spike; a burst's spikes shrink
  uint32_t Cell;  ///< 1-based
};

/// The spikes of all cells along a walk, in order of time. `share` of them, 0 to 1, are kept.
std::vector<CellSpike> FireCells(const std::vector<WalkStep>& walk, double share, const Draws& draws);

/// How high `cell` stands on each wire, in microvolts, when `elapsed` (0 to 1) of the recording is over: the tissue
/// moves by 2 micrometres meanwhile.
std::array<float, 4> HeightsOnWires(const Cell& cell, double elapsed);

}  // namespace pallomir
