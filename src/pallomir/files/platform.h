#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

// Everything that differs between operating systems; platform.cpp is the only file that may ask which one it is.

// Compiles a hot loop twice, for any x86-64 machine and for one with AVX2, and picks at start-up. Only where the
// toolchain can do so; elsewhere the loop is compiled once.
#if defined(__GNUC__) && !defined(__clang__) && defined(__x86_64__) && defined(__linux__) && \
    !defined(__SANITIZE_ADDRESS__)
#define PALLOMIR_HOT_LOOP __attribute__((target_clones("avx2", "default")))
#else
#define PALLOMIR_HOT_LOOP
#endif

// A part of such a loop has to become part of it, or it is compiled for the older machine alone.
#if defined(__GNUC__)
#define PALLOMIR_HOT_PART __attribute__((always_inline)) inline
#else
#define PALLOMIR_HOT_PART inline
#endif

namespace pallomir {

/// The path that the operating system understands for a path in the system's own notation: UTF-8, with "\" between
/// its parts ("/" too). What comes from the operating system gets into that notation by PathText() alone.
std::filesystem::path PlatformPath(std::string_view path);

/// A path of the operating system in the system's own notation. PlatformPath() leads back to the same file whatever its
/// name is: one that is not UTF-8 keeps its bytes, and a "\" within a name, where the operating system allows that, is
/// told apart from one between names.
std::string PathText(const std::filesystem::path& path);

/// A sentence or path as a user reads it: a "\" within a name looks like one.
std::string ReadablePath(std::string_view text);

/// Sees to it that what was written to `file` is on the disk, not only in memory. False when it failed.
bool FlushToDisk(std::FILE* file);

/// Asks the system to begin bringing to the disk what was written to `file`, and does not wait for it. A file that
/// nobody asks about stays in memory until FlushToDisk(), which then waits for all of it.
void StartFlushing(std::FILE* file);

/// Sees to it that a rename in `folder` has reached the disk, where the system can be asked to.
void FlushFolder(const std::filesystem::path& folder);

/// Opens a file with C's fopen() under a path of the operating system.
std::FILE* OpenFile(const std::filesystem::path& path, const char* mode);

/// Makes a file for writing under a name that nothing has, not even a link, and holds the system's lock on it until it
/// is closed: so RemoveLeftovers() tells it from what a dead program left. Null when it cannot be made, with errno set:
/// EEXIST when another name may do.
std::FILE* MakeFile(const std::filesystem::path& path);

/// Opens a plain file, never through a link, for reading and writing, and takes the system's lock on it. Null when that
/// cannot be; `taken` tells whether that is because another program, or another part of this one, holds the lock.
enum class IfMissing { Make, Leave };
std::FILE* OpenLocked(const std::filesystem::path& path, IfMissing missing, bool& taken);

/// Takes away all that a file held.
void EmptyFile(std::FILE* file);

/// Gives a file that is still open, and locked, the name `to`, and closes it: the file that had the name, or the link,
/// is replaced.
std::error_code RenameAndClose(std::FILE* file, const std::filesystem::path& from, const std::filesystem::path& to);

/// Takes a file that is still open away, and closes it.
void RemoveAndClose(std::FILE* file, const std::filesystem::path& path);

/// The program that runs, for who meets its lock: "process 4711 on rig2".
std::string ThisProgram();

/// The most memory that the program has had in use, in bytes; 0 where the system does not tell.
uint64_t PeakMemory();

/// Memory that can still be taken, in bytes, where the system promises more than it has (it then ends the program that
/// uses it); the largest number where it keeps its promises or does not tell.
uint64_t FreeMemory();

/// Zeroed memory for tables of hundreds of megabytes, in large pages where the system has them (first touching 0.5 GB
/// takes 30 ms so, 130 ms in small pages). Throws std::bad_alloc when there is not enough.
struct LargeMemoryDeleter {
  size_t bytes = 0;
  void operator()(void* memory) const;
};
using LargeMemory = std::unique_ptr<void, LargeMemoryDeleter>;
LargeMemory AllocateLargeMemory(size_t bytes);

}  // namespace pallomir
