#pragma once

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "pallomir/files/bytes.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/raw_layout.h"

namespace pallomir {

/// The layout for a path's extension, ignoring case; nullptr for any other extension.
const RawLayout* LayoutByExtension(const std::filesystem::path& path);

/// A raw file opened for reading. A file that does not begin with "#" has no header; an incomplete record at the end is
/// ignored.
class RawFile {
 public:
  /// Throws CommandError if the file cannot be opened, or its header has a record size other than the layout's.
  RawFile(const std::filesystem::path& path, const RawLayout& layout);

  const RawLayout& Layout() const { return layout_; }
  const std::filesystem::path& Path() const { return file_.Path(); }
  const std::string& Name() const { return file_.Name(); }
  /// The header, up to 16384 bytes; empty if there is none.
  const std::string& Header() const { return header_; }
  uint64_t RecordCount() const { return records_; }
  size_t TrailingBytes() const { return trailing_; }

  /// Reads `count` records, starting at record `first`, into `into`. Throws CommandError if they cannot be read.
  void Read(uint64_t first, size_t count, unsigned char* into);

  uint64_t StampOf(const unsigned char* record) const {
    return LoadLittleEndian<uint64_t>(record + layout_.StampOffset);
  }

  /// Calls use(record, number) for every record in file order, reading in large blocks. Calls progress.Begin(name of
  /// the records, their number) first and progress.Reached(number of records read) after each block.
  template <class Progress, class Use>
  void ForEachRecord(Progress& progress, Use use) {
    progress.Begin(layout_.Records, records_);
    std::vector<unsigned char> block(BlockRecords() * layout_.RecordBytes);
    for (uint64_t first = 0; first < records_; first += BlockRecords()) {
      const size_t count = static_cast<size_t>(std::min<uint64_t>(BlockRecords(), records_ - first));
      Read(first, count, block.data());
      for (size_t r = 0; r < count; ++r) use(block.data() + r * layout_.RecordBytes, first + r);
      progress.Reached(first + count);
    }
  }

 private:
  size_t BlockRecords() const { return (size_t{1} << 20) / layout_.RecordBytes; }

  FileReader file_;
  RawLayout layout_;
  std::string header_;
  uint64_t records_ = 0;
  size_t trailing_ = 0;
};

}  // namespace pallomir
