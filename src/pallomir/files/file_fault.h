#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "pallomir/files/error.h"

// Sentences about a file, which is named without its folder except in FaultOfPath().

namespace pallomir {

/// "cut.txt, line 3: ", "cut.txt, header: "; "cut.txt: " without a place.
std::string Located(const std::filesystem::path& file, const FilePlace& place);

/// "cut.txt, line 3: `what`."
CommandError FaultAt(ErrorKind kind, const std::filesystem::path& file, const FilePlace& place, std::string_view what);

/// "cut.txt `what`."; the place, if any, is named by `what`.
CommandError FaultOf(ErrorKind kind, const std::filesystem::path& file, std::string_view what,
                     const FilePlace& place = {});

/// "cut.txt ended early, at line 3."
CommandError EndedEarly(const std::filesystem::path& file, const FilePlace& place);

/// "/rat/TT1/cut.txt `what`."
CommandError FaultOfPath(ErrorKind kind, const std::filesystem::path& file, std::string_view what);

/// "/rat/TT1/AxesScaleFile is not present"
CommandError NotPresent(const std::filesystem::path& file);

}  // namespace pallomir
