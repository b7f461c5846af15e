#include "viewers/map_cells.h"

namespace pallomir {

void FillCells(QCPColorMap& colours, const MapResult& map, double scale) {
  const Map& grid = map.Grid;
  // A border without values goes round, which is out of sight: the plot wants two bins each way.
  QCPColorMapData* cells = colours.data();
  const auto centre = [&](double corner, int bin) { return (corner + (bin + 0.5) * grid.Bin) / scale; };
  cells->setSize(grid.Columns + 2, grid.Rows + 2);
  cells->setRange({centre(grid.Left, -1), centre(grid.Left, grid.Columns)},
                  {centre(grid.Top, -1), centre(grid.Top, grid.Rows)});
  cells->fill(kNotKnown);
  const bool times = map.Kind == MapKind::Occupancy;
  for (int row = 0; row < grid.Rows; ++row)
    for (int column = 0; column < grid.Columns; ++column) {
      const double value = grid.At(row, column);
      cells->setCell(column + 1, row + 1, times && value == 0 ? kNotKnown : value);
    }
}

}  // namespace pallomir
