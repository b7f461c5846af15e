#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "pallomir/session/session.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// One row of the epoch table as typed: a name, first and last stamp in microseconds.
struct Epoch {
  std::string Label;
  std::string Start;
  std::string End;
};

using EpochTable = ByEpoch<Epoch>;

/// The item of an epoch in cboEpochs: "label: start end".
std::string EpochItem(const Epoch& epoch);

/// The epoch of an item: the label up to the first ":", then the two runs of non-blank characters. An item without ":"
/// is all label.
Epoch EpochOfItem(std::string_view item);

/// The items of the rows in which anything stands, in order.
std::vector<std::string> ItemsOf(const EpochTable& table);

/// The items in rows 0, 1, ... Throws CommandError for more than 30.
EpochTable TableOf(std::span<const std::string> items);

/// Finds the first and the last spike of every row that has all three texts and writes them into the session's epoch
/// records: the first record whose stamp is not below the start; the one before the first record after it whose stamp
/// is above the end, else the last of the file. Where no stamp reaches the start, the start stays as it was and the end
/// becomes the last record. One line a row goes to the world's log. The stamps are read once.
///
/// Throws CommandError for a text that is not a number, Interrupted when the user stops it; earlier rows stay found.
void FindEventIDs(Session& session, World& world, const EpochTable& table);

}  // namespace pallomir
