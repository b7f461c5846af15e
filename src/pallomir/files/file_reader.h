#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace pallomir {

/// A file opened for binary reading at any offset. Its messages name the file without its folder.
class FileReader {
 public:
  /// Throws CommandError if `path` is missing, a folder or not readable.
  explicit FileReader(std::filesystem::path path);

  uint64_t Length() const { return length_; }
  const std::filesystem::path& Path() const { return path_; }
  const std::string& Name() const { return name_; }

  /// Reads up to `count` bytes from `offset` into `into` and returns how many were read: fewer than `count` only at the
  /// end of the file. Throws CommandError on a read error.
  size_t ReadUpTo(uint64_t offset, void* into, size_t count);

  /// As ReadUpTo, but throws CommandError with the offset if the file ends early.
  void Read(uint64_t offset, void* into, size_t count);

 private:
  std::ifstream stream_;
  std::filesystem::path path_;
  std::string name_;
  uint64_t length_ = 0;
};

/// The first `limit` bytes of a file, or all of a shorter one. Throws CommandError as FileReader does.
std::string ReadText(const std::filesystem::path& path, size_t limit);

/// The whole file. Throws CommandError for a file of more than 256 MB, which none of our text files reaches, before
/// allocating memory.
std::string ReadText(const std::filesystem::path& path);

}  // namespace pallomir
