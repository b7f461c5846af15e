#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace pallomir {

/// The length in bytes of the character that `text` begins with; 0 where that is a control character or no UTF-8.
size_t PrintableCharacter(std::string_view text);

/// A sentence, perhaps with paths in the system's own notation, as it can be shown: "?" in the place of every control
/// character but line feeds, and of every byte that is no UTF-8.
std::string Printable(std::string_view sentence);

/// What stands in a file, as a sentence quotes it: printable, on one line, in double quotes, its first 40
/// characters.
std::string Quoted(std::string_view text);

}  // namespace pallomir
