#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "pallomir/files/file_reader.h"
#include "pallomir/files/save_file.h"

namespace pallomir {

/// A file to be made, which may already exist. Its bytes are generated as often as needed: to compare them with an
/// existing file, and to write them.
class OutputFile {
 public:
  /// `header` is the text header before the written bytes; empty if there is none.
  explicit OutputFile(std::filesystem::path path, std::string header = {});

  bool Stands() const;
  /// The existing file has the same bytes, except for the date and version in the header; it stays unchanged.
  bool IsLeft() const { return left_; }
  const std::filesystem::path& Path() const { return path_; }

  /// Write() compares until EndComparing(). Both throw CommandError if the existing file differs.
  void BeginComparing();
  void EndComparing();
  /// Write() writes to a temporary file until EndWriting().
  void BeginWriting();
  void EndWriting();
  /// Does nothing unless comparing or writing. Throws CommandError as SaveFile does.
  void Write(const void* bytes, size_t count);
  void Write(std::string_view text) { Write(text.data(), text.size()); }
  /// Renames the written file to its target, unless the existing file is the same.
  void Commit();

 private:
  [[noreturn]] void Differs() const;

  std::filesystem::path path_;
  std::string header_;
  std::unique_ptr<FileReader> standing_;  // while comparing
  uint64_t compared_ = 0;
  std::unique_ptr<SaveFile> save_;
  bool writing_ = false;
  bool left_ = false;
};

/// Creates a folder and its parents. Throws CommandError on failure.
void MakeFolder(const std::filesystem::path& folder);

/// Throws CommandError if `path` is a link, a folder or not a regular file, or is one of `sources`.
void RefuseOddTarget(const std::filesystem::path& path, std::span<const std::filesystem::path> sources);

/// Files that are made together.
struct OutputGroup {
  std::vector<OutputFile> Files;
  std::function<void(std::span<OutputFile>)> Make;  ///< passes the bytes of all of them to Write()
};

/// Makes the groups' files, the first group first. Renames nothing unless all files can be made: throws CommandError
/// before writing anything if an existing file is not a regular one, is one of `sources`, or, without `replace`, has
/// other content. Files created in the meantime are checked in the same way. The folder of the last group must not be
/// in use by another program; the others are locked while files are renamed.
void PutInPlace(std::span<OutputGroup> groups, std::span<const std::filesystem::path> sources, bool replace);

}  // namespace pallomir
