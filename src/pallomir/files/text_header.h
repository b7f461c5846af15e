#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pallomir {

/// A further line of a header, "# Key: value".
struct HeaderEntry {
  std::string Key;
  std::string Value;
};

/// The header that every file of ours begins with: a few printable lines, CR LF, the last one fixed.
///
///     # Pallomir 1.0.0
///     # Kind: CBFile
///     # Version: 1
///     # Date: 2026-11-21 14:03:22
///     # End of header
///
/// `date` is the present local time when it is empty. `more` stands before the last line; control characters in it
/// become "?".
std::string TextHeader(std::string_view kind, std::string_view date = {}, const std::vector<HeaderEntry>& more = {});

/// What follows "# key: " in a header, or nothing when it has no such line.
std::optional<std::string> HeaderValue(std::string_view header, std::string_view key);

/// The length in bytes of the text header at the start of `beginning` (the first 64 KiB of a file suffice), or -1.
long TextHeaderLength(std::string_view beginning);

/// How far into a file its text header may reach.
inline constexpr size_t kTextHeaderLimit = 64 * 1024;

/// What follows a text header: where it begins, in bytes, and on which line. Of a text without one, all of it.
struct TextBody {
  size_t Begin = 0;
  int FirstLine = 1;
};

/// The body of a text by its beginning (as for TextHeaderLength), or nothing when it has no header.
std::optional<TextBody> BodyBehindHeader(std::string_view beginning);

}  // namespace pallomir
