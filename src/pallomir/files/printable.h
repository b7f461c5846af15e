#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace pallomir {

/// The length in bytes of the first character of `text`; 0 if it is a control character or not UTF-8.
size_t PrintableCharacter(std::string_view text);

/// A message as it can be shown, with the paths in it made readable: "?" replaces every control
/// character except line feeds and every byte that is not UTF-8.
std::string Printable(std::string_view sentence);

/// Text from a file, quoted for a message: printable, on one line, in double quotes, cut off after 40 characters.
std::string Quoted(std::string_view text);

}  // namespace pallomir
