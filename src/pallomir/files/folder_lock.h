#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

namespace pallomir {

/// The word of a program that it works in a folder, for as long as this stands: a file there that the system locks for
/// it. A program that was killed has lost its lock with its life. A folder that takes no file is locked by nobody and
/// needs no lock.
class FolderLock {
 public:
  /// The file, in the folder itself. It goes with the lock; a killed program leaves it, and it is nobody's then.
  static constexpr const char* kFileName = ".pallomir-lock";

  /// Of no folder.
  FolderLock() = default;
  /// Takes the lock of `folder` (in the system's own notation), unless another program has it.
  explicit FolderLock(std::string_view folder);
  ~FolderLock();
  FolderLock(FolderLock&& other) noexcept { *this = std::move(other); }
  FolderLock& operator=(FolderLock&& other) noexcept;

  /// True when another program works in the folder.
  bool Taken() const { return taken_; }
  /// Which one, in plain text: "process 4711 on rig2 since 2026-11-22 03:10"; "another program" where it does not say.
  const std::string& Holder() const { return holder_; }

 private:
  std::filesystem::path path_;
  std::FILE* file_ = nullptr;
  bool taken_ = false;
  std::string holder_;
};

}  // namespace pallomir
