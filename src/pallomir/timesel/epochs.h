#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "pallomir/session/session.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// One row of the epoch table, as typed: a label, first and last stamp in microseconds.
struct Epoch {
  std::string Label;
  std::string Start;
  std::string End;
};

using EpochTable = ByEpoch<Epoch>;

/// The text of an epoch in cboEpochs: "label: start end".
std::string EpochItem(const Epoch& epoch);

/// The epoch of an item: the label up to the first ":", then two runs of non-blank characters. An item without ":" is
/// only a label.
Epoch EpochOfItem(std::string_view item);

/// The items of the rows that are not empty, in order.
std::vector<std::string> ItemsOf(const EpochTable& table);

/// Puts the items into rows 0, 1, ... Throws CommandError for more than 30.
EpochTable TableOf(std::span<const std::string> items);

/// Finds the first and last spike of every row that has all three texts and stores them in the session's epoch records.
/// The first is the first record whose stamp is not below the start; the last is the one before the first later record
/// whose stamp is above the end, otherwise the last of the file. If no stamp reaches the start, the start stays
/// unchanged and the end becomes the last record. Writes one line per row to the log. Reads the stamps once.
///
/// Throws CommandError for a text that is not a number, Interrupted when the user stops it; rows already processed keep
/// their results.
void FindEventIDs(Session& session, World& world, const EpochTable& table);

}  // namespace pallomir
