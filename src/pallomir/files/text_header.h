#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "pallomir/files/text_lines.h"

namespace pallomir {

/// An additional line of a header, "# Key: value".
struct HeaderEntry {
  std::string Key;
  std::string Value;
};

/// The header of all our text files: a few printable lines that end with CR LF; the last one is fixed.
///
///     # Pallomir 1.0.0
///     # Kind: CBFile
///     # Version: 1
///     # Date: 2026-11-21 14:03:22
///     # End of header
///
/// An empty `date` stands for the current local time. `more` is inserted before the last line; control characters in it
/// become "?".
std::string TextHeader(std::string_view kind, std::string_view date = {}, const std::vector<HeaderEntry>& more = {});

/// The value after "# key: " in a header; empty if it has no such line.
std::optional<std::string> HeaderValue(std::string_view header, std::string_view key);

/// The length in bytes of the text header at the start of `beginning` (the first 64 KiB of a file are enough), or -1.
long TextHeaderLength(std::string_view beginning);

/// The largest offset that a text header may extend to.
inline constexpr size_t kTextHeaderLimit = size_t{64} * 1024;

/// What follows the text header of a text, given its beginning (as for TextHeaderLength); empty if it has no header.
std::optional<TextBody> BodyBehindHeader(std::string_view beginning);

}  // namespace pallomir
