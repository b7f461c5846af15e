#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "pallomir/session/session.h"

namespace pallomir {

/// What a Defaults file carries from one run to the next, besides the session's epoch record numbers: the texts of
/// boxes of the main form, and the items of its epoch list.
struct Defaults {
  std::string CBFileWrite;
  std::string CBFileRead;
  std::string ClustFile;
  std::string ParamFile;
  std::string PosFile;
  std::vector<std::string> Epochs;
};

/// Reads a Defaults file over `defaults` and the session's epoch records. A missing file changes nothing; of one
/// without a header nothing is taken, and the epoch list is emptied: false then. Lines with another key are skipped.
///
/// Throws CommandError where the file is broken or has a 31st pair of epoch records; what was read until then holds.
bool ReadDefaults(Session& session, Defaults& defaults, std::string_view path);

/// True for a file that begins as a Defaults file does.
bool IsDefaultsFile(std::string_view path);

/// Writes a Defaults file, all or nothing; the parameter file's name is left empty. Throws CommandError when it cannot
/// be written, or a text holds a double quote or line end, which the format cannot.
void WriteDefaults(const Session& session, const Defaults& defaults, std::string_view path);

}  // namespace pallomir
