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
  /// Throws CommandError when no file can be made beside `path` (in the system's own notation).
  explicit SaveFile(std::string_view path);
  ~SaveFile();
  SaveFile(const SaveFile&) = delete;
  SaveFile& operator=(const SaveFile&) = delete;

  /// Throws CommandError when the disk is full or fails.
  void Write(const void* bytes, size_t count);
  void Write(std::string_view text) { Write(text.data(), text.size()); }

  /// Puts the file in place. Throws CommandError when that fails; the earlier file is then as it was.
  void Commit();

 private:
  [[noreturn]] void Fail(std::string_view what);
  void Discard() noexcept;

  std::string path_;
  std::filesystem::path target_;
  std::filesystem::path beside_;
  std::FILE* file_ = nullptr;
};

}  // namespace pallomir
