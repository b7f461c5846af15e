#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

namespace pallomir {

/// A file that comes to stand under its name whole or not at all: everything is written beside it, under a name that
/// nobody can foresee, flushed to disk, then renamed over it. Without Commit() the earlier file, if any, stays as it
/// was. A link is never written through: the new file takes the link's own place, and what it points to stays as it is.
class SaveFile {
 public:
  /// Throws CommandError when no file can be made beside `path` (in the system's own notation), or something other than
  /// a plain file or a link stands there.
  explicit SaveFile(std::string_view path);
  ~SaveFile();
  SaveFile(const SaveFile&) = delete;
  SaveFile& operator=(const SaveFile&) = delete;

  /// Throws CommandError when the disk is full or fails.
  void Write(const void* bytes, size_t count);
  void Write(std::string_view text) { Write(text.data(), text.size()); }

  /// Sees everything to the disk, so that Commit() has nothing left to do but rename. Throws CommandError when the disk
  /// is full or fails.
  void Finish();

  /// Puts the file in place. Throws CommandError when that fails; the earlier file is then as it was.
  void Commit();

 private:
  void OpenBeside();
  [[noreturn]] void Fail(std::string_view what);
  void Discard() noexcept;

  std::string path_;
  std::filesystem::path target_;
  std::filesystem::path beside_;
  std::FILE* file_ = nullptr;
  size_t waiting_ = 0;
  bool flushed_ = false;
};

/// Removes what programs that were killed while they saved left in a folder (in the system's own notation). What a
/// running program is writing there stays.
void RemoveLeftovers(std::string_view folder);

}  // namespace pallomir
