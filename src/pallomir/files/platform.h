#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

// Everything that differs between operating systems; only platform.cpp may test which one it is.

// Compiles a hot loop twice, for any x86-64 CPU and for one with AVX2, and selects one at start-up, if the toolchain
// supports it; otherwise the loop is compiled once.
#if defined(__GNUC__) && !defined(__clang__) && defined(__x86_64__) && defined(__linux__) && \
    !defined(__SANITIZE_ADDRESS__)
#define PALLOMIR_HOT_LOOP __attribute__((target_clones("avx2", "default")))
#else
#define PALLOMIR_HOT_LOOP
#endif

// A function called in such a loop must be inlined, or it is only compiled for the older CPU.
#if defined(__GNUC__)
#define PALLOMIR_HOT_PART __attribute__((always_inline)) inline
#else
#define PALLOMIR_HOT_PART inline
#endif

namespace pallomir {

// Four numbers that such a loop adds and multiplies at once. They are loaded with memcpy() and never passed by value.
#if defined(__GNUC__)
using FourDoubles = double __attribute__((vector_size(32)));
#else
struct FourDoubles {
  double Values[4];
  double operator[](size_t k) const { return Values[k]; }
  friend FourDoubles operator*(const FourDoubles& a, const FourDoubles& b) {
    return {a[0] * b[0], a[1] * b[1], a[2] * b[2], a[3] * b[3]};
  }
  void operator+=(const FourDoubles& b) {
    for (size_t k = 0; k < 4; ++k) Values[k] += b[k];
  }
};
#endif

/// The path that a text means, as users type it and files hold it: UTF-8 with "\" or "/" as separator.
std::filesystem::path PlatformPath(std::string_view text);

/// The path of a file that such a text names, in a folder.
std::filesystem::path PathIn(const std::filesystem::path& folder, std::string_view name);

/// The text of a path, for the user and for boxes. PlatformPath() gives the same path for it, whatever its name: one
/// that is not UTF-8 keeps its bytes, and a "\" within a name, where allowed, is distinct from a separator. Separators
/// look as they did in the text that a path was made from.
std::string PathText(const std::filesystem::path& path);

/// The same for the name of a file without its folder.
std::string NameText(const std::filesystem::path& path);

/// A message or path as shown to the user: a "\" within a name looks like one.
std::string ReadablePath(std::string_view text);

/// A time on the user's clock, in the format of strftime().
std::string LocalTime(std::time_t time, const char* format);

/// Flushes `file` to the disk, not only to the operating system. Returns false on failure.
bool FlushToDisk(std::FILE* file);

/// Starts writing the data of `file` to the disk, without waiting. Otherwise the data may stay in memory until
/// FlushToDisk(), which then waits for all of it.
void StartFlushing(std::FILE* file);

/// Makes a rename in `folder` durable on the disk, if the system supports it.
void FlushFolder(const std::filesystem::path& folder);

/// fopen() for a path of the operating system.
std::FILE* OpenFile(const std::filesystem::path& path, const char* mode);

/// Creates a file for writing under an unused name (not even a link's) and holds a lock on it until it is closed, so
/// that RemoveLeftovers() can tell it from one left by a killed program. Null with errno set on failure: EEXIST if
/// another name may work.
std::FILE* MakeFile(const std::filesystem::path& path);

/// Opens a regular file, never through a link, for reading and writing, and locks it. Null on failure; `taken` tells
/// whether another program, or another part of this one, holds the lock.
enum class IfMissing { Make, Leave };
std::FILE* OpenLocked(const std::filesystem::path& path, IfMissing missing, bool& taken);

/// Truncates a file to zero length.
void EmptyFile(std::FILE* file);

/// Renames an open, locked file to `to`, replacing any file or link there, and closes it.
std::error_code RenameAndClose(std::FILE* file, const std::filesystem::path& from, const std::filesystem::path& to);

/// Deletes an open file and closes it.
void RemoveAndClose(std::FILE* file, const std::filesystem::path& path);

/// This program as others see it in the lock file: "process 4711 on rig2".
std::string ThisProgram();

/// Peak memory use of the program in bytes; 0 if unknown.
uint64_t PeakMemory();

/// Memory still available, in bytes, on systems that overcommit (and kill a program that runs out); the largest number
/// on other systems or if unknown.
uint64_t FreeMemory();

/// Lets other threads go before the calling one, so that its work does not slow down the windows. Does nothing on
/// systems that cannot do that for a single thread.
void WorkInBackground();

/// Zeroed memory for tables of hundreds of megabytes, in huge pages if available (first touching 0.5 GB takes 30 ms
/// then, 130 ms in small pages). Throws std::bad_alloc if there is not enough.
struct LargeMemoryDeleter {
  size_t bytes = 0;
  void operator()(void* memory) const;
};
using LargeMemory = std::unique_ptr<void, LargeMemoryDeleter>;
LargeMemory AllocateLargeMemory(size_t bytes);

}  // namespace pallomir
