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

/// A file that a call makes, and that may stand there already. Its bytes are made as often as they are needed: to be
/// compared with those that stand there, and to be written.
class OutputFile {
 public:
  /// `header` is the text header that comes before the bytes that are written; empty where there is none.
  explicit OutputFile(std::filesystem::path path, std::string header = {});

  bool Stands() const;
  /// The same bytes stand there already, but for date and version in the header; they are left.
  bool IsLeft() const { return left_; }
  const std::filesystem::path& Path() const { return path_; }

  /// Until EndComparing(), Write() compares. Both throw CommandError when something else stands there.
  void BeginComparing();
  void EndComparing();
  /// Until EndWriting(), Write() writes beside the place.
  void BeginWriting();
  void EndWriting();
  /// Does nothing while neither goes on. Throws CommandError as SaveFile does.
  void Write(const void* bytes, size_t count);
  void Write(std::string_view text) { Write(text.data(), text.size()); }
  /// Puts in place what was written, unless the same stands there.
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

/// Makes a folder and those above it. Throws CommandError when that fails.
void MakeFolder(const std::filesystem::path& folder);

/// Throws CommandError when what stands at `path` is a link, a folder or no regular file, or is one of `sources`.
void RefuseOddTarget(const std::filesystem::path& path, std::span<const std::string> sources);

/// Files that are made together.
struct OutputGroup {
  std::vector<OutputFile> Files;
  std::function<void(std::span<OutputFile>)> Make;  ///< hands the bytes of all of them to Write()
};

/// Makes the groups' files, those of the first group first. Nothing is put in place unless everything can be: throws
/// CommandError before anything is written when a file stands there that is not a plain one, is one of `sources`, or,
/// without `replace`, holds something else. What came to stand there meanwhile is judged in the same way. The folder of
/// the last group must not be in use by another program; the others are locked while files are put in place.
void PutInPlace(std::span<OutputGroup> groups, std::span<const std::string> sources, bool replace);

}  // namespace pallomir
