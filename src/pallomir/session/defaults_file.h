#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "pallomir/session/session.h"

namespace pallomir {

/// The content of a Defaults file, apart from the session's epoch record numbers: texts of the main form's boxes and
/// the items of its epoch list. They carry over from one run to the next.
struct Defaults {
  std::string CBFileWrite;
  std::string CBFileRead;
  std::string ClustFile;
  std::string ParamFile;
  std::string PosFile;
  std::vector<std::string> Epochs;
};

/// Reads a Defaults file into `defaults` and the session's epoch records. A missing file changes nothing. A file
/// without a header only clears the epoch list, and false is returned. Lines with an unknown key are skipped.
///
/// Throws CommandError if the file is malformed or has a 31st pair of epoch records; values read so far are kept.
bool ReadDefaults(Session& session, Defaults& defaults, const std::filesystem::path& path);

/// True for a file with the header of a Defaults file.
bool IsDefaultsFile(const std::filesystem::path& path);

/// Writes a Defaults file, all or nothing; the parameter file's name is left empty. Throws CommandError if it cannot be
/// written, or if a text contains a double quote or line end, which the format does not allow.
void WriteDefaults(const Session& session, const Defaults& defaults, const std::filesystem::path& path);

}  // namespace pallomir
