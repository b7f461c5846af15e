#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "pallomir/timesel/epochs.h"

namespace pallomir {

/// Epochs that the events of a recording name, in the order of their starts.
struct EventEpochs {
  std::vector<Epoch> Found;
  /// Labels of those whose end no event says.
  std::vector<std::string> WithoutEnd;
  /// Events that say an end, or a start behind which nothing follows, and begin or end no epoch.
  int Unused = 0;
};

/// Pairs the events of an events listing (recorded/events_file) whose texts say start and end: "maze1 start" and "maze1
/// end", "Begin sleep" and "End sleep", "run on" and "run off". The first or the last word says which, in any case, and
/// the rest is the name; without one, epochs are called "epoch 1", "epoch 2", ... An end belongs to the last start of
/// its name before it. A start without an end runs to the next start of any name, otherwise to the last event.
EventEpochs EpochsOfEvents(std::string_view listing);

/// Puts these epochs into the empty rows of the table, and leaves the others as they are; epochs that the table already
/// holds are left out. Returns what the user should know about it, in sentences.
std::string FillFromEvents(EpochTable& table, std::string_view listing);

}  // namespace pallomir
