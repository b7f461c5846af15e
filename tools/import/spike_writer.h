#pragma once

#include "pallomir/files/raw_file.h"
#include "pallomir/science/behaviour/tracking.h"
#include "tools/import/output_file.h"
#include "tools/progress_bar.h"
#include "tools/raw/record_order.h"

namespace pallomir {

/// Writes the rows of the parameter file and the records of the waveform file of all spikes in time order; row r and
/// record r are the same spike. Returns the number of spikes with a position. Throws CommandError if reading or writing
/// fails.
uint64_t WriteSpikes(RawFile& spikes, const RecordOrder& order, const SeenPositions& positions, OutputFile& parameters,
                     OutputFile& waveforms, ProgressBar& progress);

}  // namespace pallomir
