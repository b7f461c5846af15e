#pragma once

#include <string>
#include <string_view>

#include "pallomir/files/file_reader.h"
#include "pallomir/files/text_lines.h"

namespace pallomir {

/// Longer lines of a file are cut off, in bytes.
inline constexpr size_t kLongestLine = 4096;

/// Calls use(line) for every line of a file from `body` on; uses 64 KiB of memory whatever the file's size.
template <class Use>
void ForEachLine(FileReader& file, const TextBody& body, Use use) {
  std::string block(size_t{1} << 16, '\0');
  std::string begun;  // a line that began in an earlier block
  bool isWhole = true;
  size_t place = body.Begin, end = body.Begin;
  int number = body.FirstLine;
  const auto keep = [&](std::string_view piece) {
    isWhole = isWhole && begun.size() + piece.size() <= kLongestLine;
    begun.append(piece.substr(0, kLongestLine - begun.size()));
  };
  const auto give = [&](std::string_view line) { use(TextLine{WithoutReturn(line), number++, end, isWhole}); };
  while (const size_t got = file.ReadUpTo(place, block.data(), block.size())) {
    place += got;
    std::string_view rest(block.data(), got);
    for (size_t length = 0; (length = rest.find('\n')) != std::string_view::npos; rest.remove_prefix(length + 1)) {
      const std::string_view piece = rest.substr(0, length);
      end = place - rest.size() + length + 1;
      if (begun.empty() && length <= kLongestLine) {
        give(piece);
        continue;
      }
      keep(piece);
      give(begun);
      begun.clear();
      isWhole = true;
    }
    keep(rest);
  }
  end = place;
  if (!begun.empty()) give(begun);
}

}  // namespace pallomir
