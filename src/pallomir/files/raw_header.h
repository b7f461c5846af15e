#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pallomir {

/// The value of the line `-key value` of a raw file's header, trimmed; empty when there is no such line. Bytes that are
/// not printable ASCII come back as "?". Keys compare without regard to case.
std::string HeaderText(std::string_view header, std::string_view key);

/// The numbers of such a line: one, or one a channel. Stops at the first word that is not a number.
std::vector<double> HeaderNumbers(std::string_view header, std::string_view key);

/// A header of 16384 bytes: a title line, the `-key value` lines, and zeros.
std::string MakeRawHeader(std::string_view title, const std::vector<std::pair<std::string, std::string>>& lines);

}  // namespace pallomir
