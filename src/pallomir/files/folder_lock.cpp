#include "pallomir/files/folder_lock.h"

#include <algorithm>
#include <ctime>

#include "pallomir/files/error.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/platform.h"

namespace pallomir {

namespace {

/// Longer than the text any of our programs writes.
constexpr size_t kLongestHolder = 200;

std::string ThisHolder() {
  return ThisProgram() + " since " + LocalTime(std::time(nullptr), "%Y-%m-%d %H:%M");
}

/// The content of the lock file, which may be any text.
std::string HolderIn(const std::filesystem::path& path) {
  std::string text;
  try {
    text = ReadText(path, kLongestHolder);
  } catch (const CommandError&) {
    // The other program exited in the meantime.
  }
  std::erase_if(text, [](char c) { return c < ' ' || c > '~'; });
  return text.starts_with("process ") ? text : "another program";
}

}  // namespace

FolderLock::FolderLock(const std::filesystem::path& folder) : path_(folder / kFileName) {
  file_ = OpenLocked(path_, IfMissing::Make, taken_);
  if (taken_) holder_ = HolderIn(path_);
  if (!file_) return;
  const std::string text = ThisHolder();
  EmptyFile(file_);
  std::fwrite(text.data(), 1, text.size(), file_);
  std::fflush(file_);
}

FolderLock::~FolderLock() {
  if (file_) RemoveAndClose(file_, path_);
}

FolderLock& FolderLock::operator=(FolderLock&& other) noexcept {
  std::swap(path_, other.path_);
  std::swap(file_, other.file_);
  std::swap(taken_, other.taken_);
  std::swap(holder_, other.holder_);
  return *this;
}

}  // namespace pallomir
