#include "pallomir/files/platform.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <fstream>
#include <new>
#include <string>

#ifdef _WIN32
#define NOMINMAX
#include <io.h>
#include <process.h>
#include <windows.h>
#else
#include <fcntl.h>
#ifdef __APPLE__
#include <pthread/qos.h>
#endif
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace pallomir {

#ifndef _WIN32
namespace {

// Outside Windows a name may contain "\\" and bytes that are not UTF-8. In the text of a path such a "\\" becomes its
// overlong form, which UTF-8 forbids; the first byte of that form, which valid UTF-8 never contains, is escaped
// likewise. So every name keeps its bytes.
constexpr std::string_view kBackslash = "\xC1\x9C";
constexpr std::string_view kMark = "\xC1\x81";
constexpr char kMarkByte = '\xC1';

// The separator "\\" becomes two slashes, which mean one to the system, so that PathText() can show it again.
constexpr std::string_view kSeparator = "//";

}  // namespace
#endif

std::filesystem::path PlatformPath(std::string_view text) {
#ifdef _WIN32
  return std::filesystem::path(std::u8string(text.begin(), text.end()));
#else
  std::string native;
  for (size_t i = 0; i < text.size(); ++i) {
    const std::string_view here = text.substr(i, 2);
    const bool marked = here == kBackslash || here == kMark;
    if (marked)
      native += here == kMark ? kMarkByte : '\\';
    else if (text[i] == '\\')
      native += kSeparator;
    else
      native += text[i];
    i += marked;
  }
  return native;
#endif
}

std::filesystem::path PathIn(const std::filesystem::path& folder, std::string_view name) {
  return PlatformPath(PathText(folder) + "\\" + std::string(name));
}

std::string PathText(const std::filesystem::path& path) {
#ifdef _WIN32
  const std::u8string text = path.u8string();
  return std::string(text.begin(), text.end());
#else
  const std::string_view native = path.native();
  std::string text;
  for (size_t i = 0; i < native.size(); ++i) {
    const bool separator = native.substr(i, 2) == kSeparator;
    if (separator)
      text += '\\';
    else if (native[i] == '\\')
      text += kBackslash;
    else if (native[i] == kMarkByte)
      text += kMark;
    else
      text += native[i];
    i += separator;
  }
  return text;
#endif
}

std::string NameText(const std::filesystem::path& path) {
  return PathText(path.filename());
}

std::string ReadablePath(std::string_view text) {
  std::string readable(text);
#ifndef _WIN32
  for (size_t at = 0; (at = readable.find(kBackslash, at)) != std::string::npos; ++at)
    readable.replace(at, kBackslash.size(), 1, '\\');
#endif
  return readable;
}

std::string LocalTime(std::time_t time, const char* format) {
  std::tm parts = {};
#ifdef _WIN32
  localtime_s(&parts, &time);
#else
  localtime_r(&time, &parts);
#endif
  std::array<char, 64> text = {};
  return {text.data(), std::strftime(text.data(), text.size(), format, &parts)};
}

bool FlushToDisk(std::FILE* file) {
  if (std::fflush(file) != 0) return false;
#ifdef _WIN32
  return _commit(_fileno(file)) == 0;
#else
  return fsync(fileno(file)) == 0;
#endif
}

void StartFlushing([[maybe_unused]] std::FILE* file) {
#ifdef __linux__
  sync_file_range(fileno(file), 0, 0, SYNC_FILE_RANGE_WRITE);
#endif
}

void FlushFolder([[maybe_unused]] const std::filesystem::path& folder) {
#ifndef _WIN32
  const int descriptor = open(folder.empty() ? "." : folder.c_str(), O_RDONLY);
  if (descriptor < 0) return;
  fsync(descriptor);
  close(descriptor);
#endif
}

std::FILE* OpenFile(const std::filesystem::path& path, const char* mode) {
#ifdef _WIN32
  return _wfopen(path.c_str(), std::filesystem::path(mode).c_str());
#else
  return std::fopen(path.c_str(), mode);
#endif
}

#ifdef _WIN32

// Windows doesn't let another program delete a file that is open here. The lock is taken beyond any content, so that
// the content stays readable.

static bool TakeLock(std::FILE* file) {
  OVERLAPPED place{};
  place.OffsetHigh = 0x40000000;
  const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file)));
  return LockFileEx(handle, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place);
}

std::FILE* MakeFile(const std::filesystem::path& path) {
  std::FILE* const file = _wfopen(path.c_str(), L"wbxN");
  if (file) TakeLock(file);
  return file;
}

std::FILE* OpenLocked(const std::filesystem::path& path, IfMissing missing, bool& taken) {
  taken = false;
  std::error_code error;
  const auto kind = std::filesystem::symlink_status(path, error).type();
  const bool make = kind == std::filesystem::file_type::not_found && missing == IfMissing::Make;
  if (!make && kind != std::filesystem::file_type::regular) return nullptr;
  std::FILE* file = _wfopen(path.c_str(), make ? L"wb+xN" : L"rb+N");
  if (!file || TakeLock(file)) return file;
  taken = true;
  std::fclose(file);
  return nullptr;
}

void EmptyFile(std::FILE* file) {
  std::rewind(file);
  _chsize_s(_fileno(file), 0);
}

std::error_code RenameAndClose(std::FILE* file, const std::filesystem::path& from, const std::filesystem::path& to) {
  std::fclose(file);
  std::error_code error;
  std::filesystem::rename(from, to, error);
  return error;
}

void RemoveAndClose(std::FILE* file, const std::filesystem::path& path) {
  std::fclose(file);
  std::error_code error;
  std::filesystem::remove(path, error);
}

std::string ThisProgram() {
  char host[MAX_COMPUTERNAME_LENGTH + 1] = "";
  DWORD size = sizeof host;
  GetComputerNameA(host, &size);
  return "process " + std::to_string(_getpid()) + " on " + host;
}

#else

enum class Lock { Held, Taken, NotThere, Unknown };

/// NotThere: the name refers to another file by now, or to none. Unknown: the file system does not support locks.
static Lock TakeLock(int descriptor, const std::filesystem::path& path) {
  if (flock(descriptor, LOCK_EX | LOCK_NB) != 0) return errno == EWOULDBLOCK ? Lock::Taken : Lock::Unknown;
  struct stat opened {
  }, named{};
  const bool same = fstat(descriptor, &opened) == 0 && lstat(path.c_str(), &named) == 0 &&
                    opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
  return same ? Lock::Held : Lock::NotThere;
}

std::FILE* MakeFile(const std::filesystem::path& path) {
  const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  if (descriptor < 0) return nullptr;
  const Lock lock = TakeLock(descriptor, path);
  if (lock == Lock::Held || lock == Lock::Unknown) return fdopen(descriptor, "wb");
  // Another program's RemoveLeftovers() removed the file in the meantime.
  close(descriptor);
  errno = EEXIST;
  return nullptr;
}

std::FILE* OpenLocked(const std::filesystem::path& path, IfMissing missing, bool& taken) {
  taken = false;
  const bool make = missing == IfMissing::Make;
  for (;;) {
    // Opening a pipe would block until its other end opens.
    constexpr int kPlainly = O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    int descriptor = open(path.c_str(), O_RDWR | kPlainly | (make ? O_CREAT : 0), 0666);
    const bool ours = descriptor >= 0;
    // Another user's file can't be opened for writing, but its lock tells whether that user's program runs.
    if (!ours && make) descriptor = open(path.c_str(), O_RDONLY | kPlainly);
    if (descriptor < 0) return nullptr;
    struct stat opened {};
    const bool plain = fstat(descriptor, &opened) == 0 && S_ISREG(opened.st_mode) && opened.st_nlink <= 1;
    const Lock lock = plain ? TakeLock(descriptor, path) : Lock::Unknown;
    if (lock == Lock::Held && ours) return fdopen(descriptor, "rb+");
    // Remove a file that is not locked, or cannot be, to make way for our own.
    const bool inTheWay = make && plain && (lock == Lock::Unknown || lock == Lock::Held);
    const bool removed = inTheWay && unlink(path.c_str()) == 0;
    close(descriptor);
    taken = lock == Lock::Taken;
    if (lock != Lock::NotThere && !(removed && lock == Lock::Held)) return nullptr;
  }
}

void EmptyFile(std::FILE* file) {
  std::rewind(file);
  if (ftruncate(fileno(file), 0) != 0) return;
}

std::error_code RenameAndClose(std::FILE* file, const std::filesystem::path& from, const std::filesystem::path& to) {
  std::error_code error;
  std::filesystem::rename(from, to, error);
  std::fclose(file);
  return error;
}

void RemoveAndClose(std::FILE* file, const std::filesystem::path& path) {
  std::error_code error;
  std::filesystem::remove(path, error);
  std::fclose(file);
}

std::string ThisProgram() {
  char host[256] = "";
  gethostname(host, sizeof host - 1);
  return "process " + std::to_string(getpid()) + " on " + host;
}

#endif

uint64_t PeakMemory() {
#ifdef _WIN32
  return 0;
#else
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
#ifdef __APPLE__
  return static_cast<uint64_t>(usage.ru_maxrss);
#else
  return static_cast<uint64_t>(usage.ru_maxrss) * 1024;
#endif
#endif
}

uint64_t FreeMemory() {
#ifdef __linux__
  std::ifstream file("/proc/meminfo");
  uint64_t kilobytes = 0;
  for (std::string name, unit; file >> name >> kilobytes && std::getline(file, unit);)
    if (name == "MemAvailable:") return kilobytes * 1024;
#endif
  return UINT64_MAX;
}

void WorkInBackground() {
#ifdef _WIN32
  SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_LOWEST);
#elif defined(__APPLE__)
  pthread_set_qos_class_self_np(QOS_CLASS_UTILITY, 0);
#elif defined(__linux__)
  // Linux applies this to the calling thread alone, unlike POSIX.
  setpriority(PRIO_PROCESS, 0, 5);
#endif
}

#ifdef _WIN32

void LargeMemoryDeleter::operator()(void* memory) const {
  VirtualFree(memory, 0, MEM_RELEASE);
}

LargeMemory AllocateLargeMemory(size_t bytes) {
  void* memory = VirtualAlloc(nullptr, std::max<size_t>(bytes, 1), MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
  if (!memory) throw std::bad_alloc();
  return LargeMemory(memory, {bytes});
}

#else

void LargeMemoryDeleter::operator()(void* memory) const {
  munmap(memory, bytes);
}

LargeMemory AllocateLargeMemory(size_t bytes) {
  bytes = std::max<size_t>(bytes, 1);
  void* memory = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) throw std::bad_alloc();
#ifdef MADV_HUGEPAGE
  madvise(memory, bytes, MADV_HUGEPAGE);
#endif
  return LargeMemory(memory, {bytes});
}

#endif

}  // namespace pallomir
