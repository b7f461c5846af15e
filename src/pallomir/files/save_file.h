#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

namespace pallomir {

/// Writes a file atomically: to a temporary file beside it with an unpredictable name, which is flushed to disk and
/// then renamed to the target. Without Commit() an existing file stays as it was. Links are not followed: the new file
/// replaces the link, and the link's target stays as it is.
class SaveFile {
 public:
  /// Throws CommandError if no file can be created beside `path`, or if `path` exists and is
  /// neither a regular file nor a link.
  explicit SaveFile(std::filesystem::path path);
  ~SaveFile();
  SaveFile(const SaveFile&) = delete;
  SaveFile& operator=(const SaveFile&) = delete;

  /// Throws CommandError if the disk is full or fails.
  void Write(const void* bytes, size_t count);
  void Write(std::string_view text) { Write(text.data(), text.size()); }

  /// Flushes all data to the disk, so that Commit() only has to rename. Throws CommandError if the disk is full or
  /// fails.
  void Finish();

  /// Renames the file to its target. Throws CommandError on failure; an existing file is then unchanged.
  void Commit();

 private:
  void OpenBeside();
  [[noreturn]] void Fail(std::string_view what);
  void Discard() noexcept;

  std::filesystem::path target_;
  std::filesystem::path beside_;
  std::FILE* file_ = nullptr;
  size_t waiting_ = 0;
  bool flushed_ = false;
};

/// Removes temporary files left in `folder` by programs that were killed while saving. Files that a
/// running program is writing stay.
void RemoveLeftovers(const std::filesystem::path& folder);

}  // namespace pallomir
