#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace pallomir {

/// A PDF document with a bookmark to each of its pages; readers then show the list of bookmarks. They are added as an
/// incremental update, after the document's own bytes (ISO 32000-1, 7.5.6 and 12.3.3). `titles` are ASCII texts, one
/// for each page. Empty if the document is not as simple as the ones that Qt writes: an uncompressed table of objects,
/// all pages in one list, as many as there are titles, no bookmarks yet.
std::optional<std::string> WithBookmarks(std::string_view pdf, std::span<const std::string> titles);

}  // namespace pallomir
