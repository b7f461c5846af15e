#include "files/platform.h"

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <new>
#include <string>

#ifdef _WIN32
#define NOMINMAX
#include <io.h>
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>
#endif

namespace pallomir {

std::filesystem::path PlatformPath(std::string_view path) {
#ifdef _WIN32
  return std::filesystem::path(std::u8string(path.begin(), path.end()));
#else
  std::string native(path);
  std::replace(native.begin(), native.end(), '\\', '/');
  return native;
#endif
}

std::string PathText(const std::filesystem::path& path) {
#ifdef _WIN32
  const std::u8string text = path.u8string();
  return std::string(text.begin(), text.end());
#else
  return path.string();
#endif
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
