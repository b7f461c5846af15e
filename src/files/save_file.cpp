#include "files/save_file.h"

#include <cerrno>
#include <cstring>

#include "files/error.h"
#include "files/platform.h"

namespace pallomir {

/// Links behind links that are followed; beyond, they go in a circle.
static constexpr int kMostLinks = 16;

/// After so many bytes the disk is set to work. It halves the wait for the 160 MB of a million spikes' cluster files.
static constexpr size_t kFlushedAtOnce = 1 << 20;

SaveFile::SaveFile(std::string_view path, Links links) : path_(path), target_(PlatformPath(path)) {
  std::error_code error;
  if (std::filesystem::is_directory(target_, error)) throw CommandError(path_ + " is a folder; nothing was written.");
  // A link stays a link: what it points to, over others perhaps, is replaced.
  for (int link = 0; link < kMostLinks && links == Links::Follow; ++link) {
    if (!std::filesystem::is_symlink(target_, error)) break;
    const auto real = std::filesystem::read_symlink(target_, error);
    if (!error) target_ = target_.parent_path() / real;
  }
  beside_ = target_;
  beside_ += ".saving~";
  file_ = OpenFile(beside_, "wb");
  if (file_) return;
  // What has the name beside was not made here.
  beside_.clear();
  Fail("cannot be written");
}

SaveFile::~SaveFile() {
  Discard();
}

void SaveFile::Write(const void* bytes, size_t count) {
  if (std::fwrite(bytes, 1, count, file_) != count) Fail("could not be written to the end");
  // The disk works while the next part is made.
  waiting_ += count;
  if (waiting_ < kFlushedAtOnce) return;
  waiting_ = 0;
  StartFlushing(file_);
}

void SaveFile::Finish() {
  if (!FlushToDisk(file_)) Fail("could not be written to the end");
  const bool closed = std::fclose(file_) == 0;
  file_ = nullptr;
  if (!closed) Fail("could not be written to the end");
}

void SaveFile::Commit() {
  if (file_) Finish();
  std::error_code error;
  const auto before = std::filesystem::status(target_, error);
  if (!error && std::filesystem::exists(before)) std::filesystem::permissions(beside_, before.permissions(), error);
  std::filesystem::rename(beside_, target_, error);
  if (error) {
    errno = error.value();
    Fail("could not be put in place");
  }
  beside_.clear();
  FlushFolder(target_.parent_path());
}

void SaveFile::Fail(std::string_view what) {
  const std::string reason = errno ? std::string(" (") + std::strerror(errno) + ")" : std::string();
  Discard();
  throw CommandError(path_ + " " + std::string(what) + reason + "; what stood there before is untouched.");
}

void SaveFile::Discard() noexcept {
  if (file_) std::fclose(file_);
  file_ = nullptr;
  std::error_code error;
  if (!beside_.empty()) std::filesystem::remove(beside_, error);
  beside_.clear();
}

}  // namespace pallomir
