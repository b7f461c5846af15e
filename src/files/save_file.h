#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

namespace pallomir {

/// A file that comes to stand under its name whole or not at all: everything is written beside it, flushed to disk,
/// then renamed over it. Without Commit() the earlier file, if any, stays as it was.
class SaveFile {
 public:
  /// Where `path` is a link: write to the file that it points to, or put a file of its own in the link's place.
  enum class Links { Follow, Replace };

  /// Throws CommandError when no file can be made beside `path` (in the system's own notation).
  explicit SaveFile(std::string_view path, Links links = Links::Follow);
  ~SaveFile();
  SaveFile(const SaveFile&) = delete;
  SaveFile& operator=(const SaveFile&) = delete;

  /// Throws CommandError when the disk is full or fails.
  void Write(const void* bytes, size_t count);
  void Write(std::string_view text) { Write(text.data(), text.size()); }

  /// Sees everything to the disk and ends the writing, so that Commit() has nothing left to do but rename. Throws
  /// CommandError when the disk is full or fails.
  void Finish();

  /// Puts the file in place. Throws CommandError when that fails; the earlier file is then as it was.
  void Commit();

 private:
  [[noreturn]] void Fail(std::string_view what);
  void Discard() noexcept;

  std::string path_;
  std::filesystem::path target_;
  std::filesystem::path beside_;
  std::FILE* file_ = nullptr;
  size_t waiting_ = 0;
};

}  // namespace pallomir
