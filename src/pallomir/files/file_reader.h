#pragma once

#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>

namespace pallomir {

/// A file opened for binary reading at any place. Its messages name the file by its last part.
class FileReader {
 public:
  /// Throws CommandError when `path` (in the system's own notation) is missing, a folder or not readable.
  explicit FileReader(std::string_view path);

  uint64_t Length() const { return length_; }
  const std::string& Name() const { return name_; }

  /// Fills `into` from byte `offset` on and returns how many bytes there were: fewer than `count` only at the end of
  /// the file. Throws CommandError when the disk reports a fault.
  size_t ReadUpTo(uint64_t offset, void* into, size_t count);

  /// As ReadUpTo, but a file that ends early is a fault: throws CommandError saying at which byte.
  void Read(uint64_t offset, void* into, size_t count);

 private:
  std::ifstream stream_;
  std::string name_;
  uint64_t length_ = 0;
};

/// The first `limit` bytes of a file, or all of it when it is shorter. Throws CommandError as FileReader does.
std::string ReadText(std::string_view path, size_t limit);

/// All of a file. One of more than 256 MB, which none of our texts reaches, is refused with a CommandError before it
/// takes memory.
std::string ReadText(std::string_view path);

}  // namespace pallomir
