#pragma once

#include "gui/forms/workbench.h"

namespace pallomir {

/// Asks for a file, measures all clusters that have a boundary over the loaded points, and writes the table to it: CSV,
/// or JSON for a name that ends in .json. Throws CommandError if there is nothing to measure or a file cannot be used;
/// the file is then as it was.
void ExportMeasures(Workbench& bench, QWidget* parent);

}  // namespace pallomir
