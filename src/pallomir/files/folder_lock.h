#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

namespace pallomir {

/// Marks a folder as in use for the lifetime of this object, with a file in the folder that is locked through the
/// operating system, so that the lock of a killed program ends with it. A folder in which no file can be created is not
/// locked and needs no lock.
class FolderLock {
 public:
  /// The lock file's name. The file is removed with the lock; one left by a killed program is unlocked.
  static constexpr const char* kFileName = ".pallomir-lock";

  /// Locks nothing.
  FolderLock() = default;
  /// Locks `folder`, unless another program has locked it.
  explicit FolderLock(const std::filesystem::path& folder);
  ~FolderLock();
  FolderLock(FolderLock&& other) noexcept { *this = std::move(other); }
  FolderLock& operator=(FolderLock&& other) noexcept;

  /// True if another program has the lock.
  bool Taken() const { return taken_; }
  /// That program, in plain text: "process 4711 on rig2 since 2026-11-22 03:10"; "another program" if the lock file
  /// does not say.
  const std::string& Holder() const { return holder_; }

 private:
  std::filesystem::path path_;
  std::FILE* file_ = nullptr;
  bool taken_ = false;
  std::string holder_;
};

}  // namespace pallomir
