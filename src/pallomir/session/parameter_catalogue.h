#pragma once

#include <array>
#include <string>

namespace pallomir {

/// A parameter's index is its position in the catalogue, its column in a parameter-file row and its slot in a point
/// record. Tables by parameter have one additional, unused entry.
inline constexpr int kParameters = 134;
inline constexpr int kParameterSlots = 135;

// First index of each family of 32 (add the channel, counted from 0), and the single parameters.
inline constexpr int kMPeak = 0;
inline constexpr int kPreVal = 32;
inline constexpr int kSpikeID = 64;
inline constexpr int kEnergy = 65;
inline constexpr int kMaxHeight = 97;
inline constexpr int kMaxWidth = 98;
inline constexpr int kPosX = 99;
inline constexpr int kPosY = 100;
inline constexpr int kTimestamp = 101;
inline constexpr int kValley = 102;

/// The slot used as the spike's record number when displaying epochs and writing cluster files.
inline constexpr int kRecordSlot = 8;

/// The 134 names in order, with an empty one for the unused slot.
std::array<std::string, kParameterSlots> ParameterCatalogue();

}  // namespace pallomir
