#include "pallomir/files/file_reader.h"

#include <algorithm>
#include <utility>

#include "pallomir/files/file_calls.h"
#include "pallomir/files/file_fault.h"
#include "pallomir/files/platform.h"

namespace pallomir {

FileReader::FileReader(std::filesystem::path path) : path_(std::move(path)), name_(NameText(path_)) {
  namespace fs = std::filesystem;
  const auto refuse = [this](ErrorKind kind, const char* why) { throw FaultOfPath(kind, path_, why); };
  std::error_code error;
  if (fs::is_directory(path_, error)) refuse(ErrorKind::Unreadable, "is a folder, not a file");
  if (!fs::exists(path_, error)) refuse(ErrorKind::Missing, "does not exist");
  // Opening a pipe would block until its other end opens.
  if (!fs::is_regular_file(path_, error)) refuse(ErrorKind::Unreadable, "is not a regular file");
  // Reads are large, so the stream's own buffer would only add a copy.
  stream_.rdbuf()->pubsetbuf(nullptr, 0);
  if (!Faulted(FileCall::Open)) stream_.open(path_, std::ios::binary);
  // Length of the opened file, as the name may refer to another file by now.
  const auto end = stream_.is_open() ? stream_.seekg(0, std::ios::end).tellg() : std::streampos(-1);
  if (end < 0) refuse(ErrorKind::Unreadable, "cannot be opened for reading");
  length_ = static_cast<uint64_t>(end);
}

size_t FileReader::ReadUpTo(uint64_t offset, void* into, size_t count) {
  if (offset >= length_) return 0;
  count = static_cast<size_t>(std::min<uint64_t>(count, length_ - offset));
  stream_.clear();
  stream_.seekg(static_cast<std::streamoff>(offset));
  const bool there = stream_.good();
  if (there) stream_.read(static_cast<char*>(into), static_cast<std::streamsize>(count));
  // A short read means the end of the file only if the stream reports no error.
  if (!there || stream_.bad())
    throw CommandError(ErrorKind::Unreadable, "Reading " + name_ + " failed at byte " + std::to_string(offset) + ".",
                       path_, FilePlace::AtByte(offset));
  return static_cast<size_t>(stream_.gcount());
}

void FileReader::Read(uint64_t offset, void* into, size_t count) {
  const size_t got = ReadUpTo(offset, into, count);
  if (got < count) throw EndedEarly(path_, FilePlace::AtByte(offset + got));
}

std::string ReadText(const std::filesystem::path& path, size_t limit) {
  FileReader file(path);
  std::string text(static_cast<size_t>(std::min<uint64_t>(file.Length(), limit)), '\0');
  text.resize(file.ReadUpTo(0, text.data(), text.size()));
  return text;
}

std::string ReadText(const std::filesystem::path& path) {
  constexpr uint64_t kLargest = 256'000'000;
  const uint64_t length = FileReader(path).Length();
  if (length > kLargest)
    throw FaultOfPath(ErrorKind::Foreign, path,
                      "holds " + std::to_string(length / 1'000'000) + " MB, which is more than any file of its kind");
  return ReadText(path, kLargest);
}

}  // namespace pallomir
