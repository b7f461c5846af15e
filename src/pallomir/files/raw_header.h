#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pallomir {

/// The trimmed value of the line `-key value` in a raw file's header; empty if there is none. Bytes that are not
/// printable ASCII become "?". Keys are compared ignoring case.
std::string HeaderText(std::string_view header, std::string_view key);

/// The numbers of such a line: one, or one per channel. Stops at the first word that is not a number.
std::vector<double> HeaderNumbers(std::string_view header, std::string_view key);

/// A header of 16384 bytes: a title line, the `-key value` lines, and zeros.
std::string MakeRawHeader(std::string_view title, const std::vector<std::pair<std::string, std::string>>& lines);

}  // namespace pallomir
