#include "tools/import/output_file.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <set>
#include <thread>

#include "pallomir/files/file_fault.h"
#include "pallomir/files/folder_lock.h"
#include "pallomir/files/platform.h"
#include "pallomir/files/text_header.h"
#include "tools/progress_bar.h"

namespace pallomir {

namespace {

/// How long other imports may take to rename their files.
constexpr auto kPatience = std::chrono::seconds(30);
constexpr auto kNextLook = std::chrono::milliseconds(20);

/// Waits up to `patience` for another program to release the folder, and removes temporary files left by killed
/// programs.
FolderLock LockOf(const std::filesystem::path& folder, std::chrono::seconds patience) {
  const auto begin = std::chrono::steady_clock::now();
  while (true) {
    FolderLock lock(folder);
    if (!lock.Taken()) {
      RemoveLeftovers(folder);
      return lock;
    }
    if (IsToStop()) throw Interrupted();
    if (std::chrono::steady_clock::now() - begin >= patience)
      throw CommandError(ErrorKind::NotWritten,
                         "The folder " + PathText(folder) + " is in use by " + lock.Holder() +
                             "; nothing was written. Try again when it has ended.",
                         folder);
    std::this_thread::sleep_for(kNextLook);
  }
}

/// The lines of a header, except those with program and date.
std::string WhatCounts(std::string_view header) {
  std::string text;
  TextLines lines(header);
  size_t begin = 0;
  for (TextLine line; lines.Take(line); begin = line.End)
    if (!line.Text.starts_with("# Pallomir ") && !line.Text.starts_with("# Date: "))
      text += header.substr(begin, line.End - begin);
  return text;
}

/// The files not known to stay unchanged; with `standingOnly` only those that exist.
std::vector<OutputFile*> Open(OutputGroup& group, bool standingOnly) {
  std::vector<OutputFile*> open;
  for (OutputFile& file : group.Files)
    if (!file.IsLeft() && (!standingOnly || file.Stands())) open.push_back(&file);
  return open;
}

void CompareWithWhatStands(OutputGroup& group) {
  const auto files = Open(group, true);
  if (files.empty()) return;
  for (OutputFile* file : files) file->BeginComparing();
  group.Make(group.Files);
  for (OutputFile* file : files) file->EndComparing();
}

void WriteBeside(OutputGroup& group) {
  const auto files = Open(group, false);
  if (files.empty()) return;
  for (OutputFile* file : files) MakeFolder(file->Path().parent_path());
  for (OutputFile* file : files) file->BeginWriting();
  group.Make(group.Files);
  for (OutputFile* file : files) file->EndWriting();
}

}  // namespace

void MakeFolder(const std::filesystem::path& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error)
    throw CommandError(ErrorKind::NotWritten,
                       "The folder " + PathText(folder) + " cannot be created (" + error.message() + ").", folder);
}

void RefuseOddTarget(const std::filesystem::path& path, std::span<const std::filesystem::path> sources) {
  std::error_code error;
  const auto status = std::filesystem::symlink_status(path, error);
  const auto refuse = [&path](const std::string& why) { throw FaultOfPath(ErrorKind::NotWritten, path, why); };
  if (!std::filesystem::exists(status)) return;
  if (std::filesystem::is_symlink(status))
    refuse("is a link, which is neither followed nor replaced; nothing was written");
  if (std::filesystem::is_directory(status)) refuse("is a folder; nothing was written");
  if (!std::filesystem::is_regular_file(status)) refuse("is not a regular file; nothing was written");
  for (const std::filesystem::path& source : sources)
    if (std::filesystem::equivalent(path, source, error) && !error)
      refuse("is " + PathText(source) +
             " itself, which would be overwritten; nothing was written. Name another folder");
}

OutputFile::OutputFile(std::filesystem::path path, std::string header)
    : path_(std::move(path)), header_(std::move(header)) {}

bool OutputFile::Stands() const {
  std::error_code error;
  return std::filesystem::exists(std::filesystem::symlink_status(path_, error));
}

void OutputFile::BeginComparing() {
  standing_ = std::make_unique<FileReader>(path_);
  compared_ = 0;
  if (header_.empty()) return;
  std::string beginning(std::min<uint64_t>(standing_->Length(), kTextHeaderLimit), '\0');
  standing_->Read(0, beginning.data(), beginning.size());
  const long length = TextHeaderLength(beginning);
  if (length < 0) Differs();
  compared_ = static_cast<uint64_t>(length);
  if (WhatCounts(header_) != WhatCounts(std::string_view(beginning).substr(0, compared_))) Differs();
}

void OutputFile::EndComparing() {
  if (compared_ != standing_->Length()) Differs();
  standing_.reset();
  left_ = true;
}

void OutputFile::BeginWriting() {
  save_ = std::make_unique<SaveFile>(path_);
  save_->Write(header_);
  writing_ = true;
}

void OutputFile::EndWriting() {
  save_->Finish();
  writing_ = false;
}

void OutputFile::Write(const void* bytes, size_t count) {
  if (writing_) save_->Write(bytes, count);
  if (!standing_) return;
  std::vector<char> there(count);
  if (standing_->ReadUpTo(compared_, there.data(), count) != count || std::memcmp(bytes, there.data(), count) != 0)
    Differs();
  compared_ += count;
}

void OutputFile::Commit() {
  if (save_ && !left_) save_->Commit();
  save_.reset();
}

void OutputFile::Differs() const {
  throw FaultOfPath(ErrorKind::NotWritten, path_,
                    "already exists with other contents; nothing was written. --replace replaces it");
}

void PutInPlace(std::span<OutputGroup> groups, std::span<const std::filesystem::path> sources, bool replace) {
  for (const OutputGroup& group : groups)
    for (const OutputFile& file : group.Files) RefuseOddTarget(file.Path(), sources);
  if (!replace)
    for (OutputGroup& group : groups) CompareWithWhatStands(group);
  std::set<std::filesystem::path> folders;
  for (OutputGroup& group : groups)
    for (const OutputFile* file : Open(group, false)) folders.insert(file->Path().parent_path());
  if (folders.empty()) return;
  const std::filesystem::path own = groups.back().Files.back().Path().parent_path();
  std::vector<FolderLock> locks;
  if (folders.erase(own) > 0) {
    MakeFolder(own);
    locks.push_back(LockOf(own, {}));
  }
  for (OutputGroup& group : groups) WriteBeside(group);
  for (const std::filesystem::path& folder : folders) locks.push_back(LockOf(folder, kPatience));
  if (!replace)
    for (OutputGroup& group : groups) CompareWithWhatStands(group);
  for (OutputGroup& group : groups)
    for (OutputFile& file : group.Files) file.Commit();
}

}  // namespace pallomir
