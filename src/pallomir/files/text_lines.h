#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include "pallomir/files/file_reader.h"

namespace pallomir {

/// Longer lines are cut off, in bytes.
inline constexpr size_t kLongestLine = 4096;

/// Calls use(line, isWhole) for every line of a text, starting at byte `begin`, without its line end; uses 64 KiB of
/// memory whatever the file's size. Lines longer than kLongestLine are cut off, with isWhole false.
template <class Use>
void ForEachLine(FileReader& file, uint64_t begin, Use use) {
  std::string block(size_t{1} << 16, '\0');
  std::string line;
  bool isWhole = true;
  const auto finish = [&] {
    if (line.ends_with('\r')) line.pop_back();
    use(std::string_view(line), isWhole);
    line.clear();
    isWhole = true;
  };
  while (const size_t got = file.ReadUpTo(begin, block.data(), block.size())) {
    begin += got;
    std::string_view rest(block.data(), got);
    for (;;) {
      const size_t end = rest.find('\n');
      const std::string_view piece = rest.substr(0, end);
      isWhole = isWhole && line.size() + piece.size() <= kLongestLine;
      line.append(piece.substr(0, kLongestLine - std::min(line.size(), kLongestLine)));
      if (end == std::string_view::npos) break;
      finish();
      rest.remove_prefix(end + 1);
    }
  }
  if (!line.empty()) finish();
}

}  // namespace pallomir
