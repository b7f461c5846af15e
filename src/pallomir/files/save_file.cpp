#include "pallomir/files/save_file.h"

#include <cerrno>
#include <random>
#include <system_error>
#include <utility>
#include <vector>

#include "pallomir/files/file_calls.h"
#include "pallomir/files/file_fault.h"
#include "pallomir/files/platform.h"

namespace pallomir {

namespace {

namespace fs = std::filesystem;

/// Ending of the names of temporary files.
constexpr std::string_view kEnding = ".saving~";

/// Bytes of the target's name used in the temporary name. Most systems refuse names of more than 255 bytes.
constexpr size_t kNameKept = 200;

/// Start flushing after this many bytes. This halves the wait for the 160 MB of a million spikes' cluster files.
constexpr size_t kFlushedAtOnce = 1 << 20;

/// An unpredictable name beside `path`, so that nobody can plant a link or a pipe there.
fs::path NameBeside(const fs::path& path) {
  std::random_device random;
  char number[17];
  std::snprintf(number, sizeof number, "%08x%08x", random(), random());
  fs::path name = path.parent_path() / path.filename().native().substr(0, kNameKept);
  name += '.' + std::string(number) + std::string(kEnding);
  return name;
}

}  // namespace

SaveFile::SaveFile(std::filesystem::path path) : target_(std::move(path)) {
  std::error_code error;
  const auto kind = fs::symlink_status(target_, error).type();
  if (kind == fs::file_type::directory)
    throw FaultOfPath(ErrorKind::NotWritten, target_, "is a folder; nothing was written");
  const bool replaceable =
      kind == fs::file_type::regular || kind == fs::file_type::symlink || kind == fs::file_type::not_found;
  if (!error && !replaceable)
    throw FaultOfPath(ErrorKind::NotWritten, target_, "is not a regular file; nothing was written");
  OpenBeside();
}

void SaveFile::OpenBeside() {
  constexpr int kMostNames = 100;
  for (int name = 0; name < kMostNames; ++name) {
    beside_ = NameBeside(target_);
    file_ = Faulted(FileCall::Open) ? nullptr : MakeFile(beside_);
    if (file_) return;
    if (errno != EEXIST) break;
  }
  beside_.clear();
  Fail("cannot be written");
}

SaveFile::~SaveFile() {
  Discard();
}

void SaveFile::Write(const void* bytes, size_t count) {
  if (Faulted(FileCall::Write) || std::fwrite(bytes, 1, count, file_) != count) Fail("could not be written completely");
  // The disk writes while the next block is prepared.
  waiting_ += count;
  if (waiting_ < kFlushedAtOnce) return;
  waiting_ = 0;
  StartFlushing(file_);
}

void SaveFile::Finish() {
  if (Faulted(FileCall::Flush) || !FlushToDisk(file_)) Fail("could not be written completely");
  flushed_ = true;
}

void SaveFile::Commit() {
  if (!flushed_) Finish();
  std::error_code error;
  const auto before = fs::symlink_status(target_, error);
  if (!error && fs::is_regular_file(before)) fs::permissions(beside_, before.permissions(), error);
  if (Faulted(FileCall::Rename)) Fail("could not be put in place");
  error = RenameAndClose(std::exchange(file_, nullptr), beside_, target_);
  if (error) {
    errno = error.value();
    Fail("could not be put in place");
  }
  beside_.clear();
  FlushFolder(target_.parent_path());
}

void SaveFile::Fail(std::string_view what) {
  const std::string reason = errno ? " (" + std::generic_category().message(errno) + ")" : std::string();
  Discard();
  throw FaultOfPath(ErrorKind::NotWritten, target_,
                    std::string(what) + reason + "; the earlier file, if any, is unchanged");
}

void SaveFile::Discard() noexcept {
  std::error_code error;
  if (file_)
    RemoveAndClose(std::exchange(file_, nullptr), beside_);
  else if (!beside_.empty())
    fs::remove(beside_, error);
  beside_.clear();
}

void RemoveLeftovers(const std::filesystem::path& folder) {
  std::vector<fs::path> pieces;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
    if (entry->path().extension() == kEnding) pieces.push_back(entry->path());
  for (const fs::path& piece : pieces) {
    bool taken = false;
    std::FILE* const dead = OpenLocked(piece, IfMissing::Leave, taken);
    if (dead) RemoveAndClose(dead, piece);
  }
}

}  // namespace pallomir
