#pragma once

#include "gui/forms/workbench.h"

namespace pallomir {

/// Asks for a file, and writes the reports of all clusters that have a boundary to it: a PDF document with a page and a
/// bookmark for each. Throws what MakeReports() does, and CommandError if there is nothing to report; the file is then
/// as it was.
void SaveAllReports(Workbench& bench, QWidget* parent);

}  // namespace pallomir
